#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CPoint;
class CString;

/// The hooks of the host's macro recorder: a table of functions that the host fills, and a front
/// for each.
///
/// Before `InitFunctions` every front is silent and answers false. After it, a front whose function
/// is missing reports that once for each call, recording or not. Record fronts reach the host only
/// while a macro is recorded, replay and cursor fronts only while one is replayed. User-interface
/// thread; boxes of workers ask from their own.
class UTILITY_CORE_API CMacroOps
{
public:
    using RecordMsgboxFunc = bool (*)(const CString* caption, int* result);
    using ReplayMsgboxFunc = bool (*)(const CString* caption, int* result);
    using GetCursorPosFunc = bool (*)(CPoint* point, bool* isSet);
    using SetCursorPosFunc = void (*)(CPoint* point);
    using RecordCmdFunc = bool (*)(UINT id);
    using RecordMouseFunc = void (*)(int event, UINT flags, CPoint point);
    using SetRecordSuspendedFunc = bool (*)(bool suspended);
    using IsDesignCoordsFunc = bool (*)();

    static void InitFunctions(RecordMsgboxFunc recordMsgbox, ReplayMsgboxFunc replayMsgbox,
                              GetCursorPosFunc getCursorPos, SetCursorPosFunc setCursorPos,
                              RecordCmdFunc recordCmd, RecordCmdFunc recordInternalCmd,
                              RecordMouseFunc recordMouse,
                              SetRecordSuspendedFunc setRecordSuspended,
                              IsDesignCoordsFunc isDesignCoords);

    static bool IsRecording();
    static void SetRecording(bool recording);
    static bool IsReplaying();
    static void SetReplaying(bool replaying);

    /// Boxes, by caption or by the caption's id.
    static bool RecordMsgbox(const CString& caption, int result);
    static bool RecordMsgbox(UINT id, int result);
    /// True if the macro answers; `result` keeps its preset otherwise.
    static bool ReplayMsgbox(const CString& caption, int& result);
    static bool ReplayMsgbox(UINT id, int& result);

    static bool GetCursorPos(CPoint* point, bool* isSet);
    static void SetCursorPos(CPoint* point);
    static bool RecordCommand(UINT id);
    static bool RecordInternalCommand(UINT id);
    static void RecordMouseEvent(int event, UINT flags, CPoint point);
    static bool SetRecordSuspended(bool suspended);
    /// Neither recording nor replaying is needed for this one.
    static bool IsDesignCoords();
};

} // namespace utility
