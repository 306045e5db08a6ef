#include "frame/MacroOps.h"

#include "frame/AppError.h"
#include "platform/base/Point.h"
#include "platform/base/String.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"

namespace utility
{

namespace
{

/// The host's functions, in the order of `InitFunctions`.
struct CMacroFunctions
{
    CMacroOps::RecordMsgboxFunc m_RecordMsgbox = nullptr;
    CMacroOps::ReplayMsgboxFunc m_ReplayMsgbox = nullptr;
    CMacroOps::GetCursorPosFunc m_GetCursorPos = nullptr;
    CMacroOps::SetCursorPosFunc m_SetCursorPos = nullptr;
    CMacroOps::RecordCmdFunc m_RecordCmd = nullptr;
    CMacroOps::RecordCmdFunc m_RecordInternalCmd = nullptr;
    CMacroOps::RecordMouseFunc m_RecordMouse = nullptr;
    CMacroOps::SetRecordSuspendedFunc m_SetRecordSuspended = nullptr;
    CMacroOps::IsDesignCoordsFunc m_IsDesignCoords = nullptr;
};

constinit CMacroFunctions functions;
constinit bool isInitialised = false;
// Workers' boxes ask these too.
constinit std::atomic<bool> isRecording = false;
constinit std::atomic<bool> isReplaying = false;

/// The fronts whose missing function this thread is reporting just now, a bit for each.
constinit thread_local unsigned frontsBeingReported = 0;

enum EFront : unsigned
{
    RECORD_MSGBOX = 1,
    REPLAY_MSGBOX = 2,
    GET_CURSOR_POS = 4,
    SET_CURSOR_POS = 8,
    RECORD_COMMAND = 16,
    RECORD_INTERNAL_COMMAND = 32,
    RECORD_MOUSE_EVENT = 64,
    SET_RECORD_SUSPENDED = 128,
    IS_DESIGN_COORDS = 256
};

/// Marks a front as being reported, also while an exception leaves the report.
class CFrontReport
{
public:
    explicit CFrontReport(EFront front) : m_Front(front) { frontsBeingReported |= m_Front; }
    ~CFrontReport() { frontsBeingReported &= ~m_Front; }
    CFrontReport(const CFrontReport&) = delete;
    CFrontReport& operator=(const CFrontReport&) = delete;

private:
    const unsigned m_Front;
};

/// Reports a missing function under the name of its front.
///
/// The report is a box, which asks the macro in turn: a front that is being reported stays silent,
/// or the two would call each other for ever.
void ReportMissing(EFront front, const char16_t* name)
{
    if (!isInitialised || (frontsBeingReported & front))
        return;
    const CFrontReport report(front);
    CAppError::ReportError(IDS_MACRO_OPS_UNDEFINED, name);
}

template <typename TFunction>
bool IsThere(TFunction function, EFront front, const char16_t* name)
{
    if (function)
        return true;
    ReportMissing(front, name);
    return false;
}

} // namespace

void CMacroOps::InitFunctions(RecordMsgboxFunc recordMsgbox, ReplayMsgboxFunc replayMsgbox,
                              GetCursorPosFunc getCursorPos, SetCursorPosFunc setCursorPos,
                              RecordCmdFunc recordCmd, RecordCmdFunc recordInternalCmd,
                              RecordMouseFunc recordMouse,
                              SetRecordSuspendedFunc setRecordSuspended,
                              IsDesignCoordsFunc isDesignCoords)
{
    functions = {recordMsgbox,      replayMsgbox, getCursorPos,       setCursorPos,  recordCmd,
                 recordInternalCmd, recordMouse,  setRecordSuspended, isDesignCoords};
    isInitialised = true;
}

bool CMacroOps::IsRecording()
{
    return isRecording;
}

void CMacroOps::SetRecording(bool recording)
{
    isRecording = recording;
}

bool CMacroOps::IsReplaying()
{
    return isReplaying;
}

void CMacroOps::SetReplaying(bool replaying)
{
    isReplaying = replaying;
}

bool CMacroOps::RecordMsgbox(const CString& caption, int result)
{
    return IsThere(functions.m_RecordMsgbox, RECORD_MSGBOX, u"RecordMsgbox") && isRecording &&
           functions.m_RecordMsgbox(&caption, &result);
}

bool CMacroOps::RecordMsgbox(UINT id, int result)
{
    return isRecording && RecordMsgbox(CStringTable::Get(id), result);
}

bool CMacroOps::ReplayMsgbox(const CString& caption, int& result)
{
    return IsThere(functions.m_ReplayMsgbox, REPLAY_MSGBOX, u"ReplayMsgbox") && isReplaying &&
           functions.m_ReplayMsgbox(&caption, &result);
}

bool CMacroOps::ReplayMsgbox(UINT id, int& result)
{
    return isReplaying && ReplayMsgbox(CStringTable::Get(id), result);
}

bool CMacroOps::GetCursorPos(CPoint* point, bool* isSet)
{
    return IsThere(functions.m_GetCursorPos, GET_CURSOR_POS, u"GetCursorPos") && isReplaying &&
           functions.m_GetCursorPos(point, isSet);
}

void CMacroOps::SetCursorPos(CPoint* point)
{
    if (IsThere(functions.m_SetCursorPos, SET_CURSOR_POS, u"SetCursorPos") && isReplaying)
        functions.m_SetCursorPos(point);
}

bool CMacroOps::RecordCommand(UINT id)
{
    return IsThere(functions.m_RecordCmd, RECORD_COMMAND, u"RecordCommand") && isRecording &&
           functions.m_RecordCmd(id);
}

bool CMacroOps::RecordInternalCommand(UINT id)
{
    return IsThere(functions.m_RecordInternalCmd, RECORD_INTERNAL_COMMAND,
                   u"RecordInternalCommand") &&
           isRecording && functions.m_RecordInternalCmd(id);
}

void CMacroOps::RecordMouseEvent(int event, UINT flags, CPoint point)
{
    if (IsThere(functions.m_RecordMouse, RECORD_MOUSE_EVENT, u"RecordMouseEvent") && isRecording)
        functions.m_RecordMouse(event, flags, point);
}

bool CMacroOps::SetRecordSuspended(bool suspended)
{
    return IsThere(functions.m_SetRecordSuspended, SET_RECORD_SUSPENDED, u"SetRecordSuspended") &&
           isRecording && functions.m_SetRecordSuspended(suspended);
}

bool CMacroOps::IsDesignCoords()
{
    return IsThere(functions.m_IsDesignCoords, IS_DESIGN_COORDS, u"IsDesignCoords") &&
           functions.m_IsDesignCoords();
}

} // namespace utility
