#pragma once

#include "frame/IdleHandler.h"

#include <functional>

namespace utility
{

class CRecordset;

/// Where a fetch in idle time stands.
enum class EIdleFetch
{
    Running,
    Complete, // all rows are here, and tested where the set filters
    Failed    // refused or cancelled; the driver's words are in the log, context "DBADatabase"
};

/// Fetches the rows of an open recordset while the program has nothing else to do, so that a grid's
/// count of rows grows without anybody scrolling.
///
/// Each idle call takes a step of a few milliseconds on the user-interface thread. The set must
/// outlive this object; a closed set counts as complete.
class UTILITY_CORE_API CIdleFetch : public CIdleHandler
{
public:
    /// `told` is called after each step, until one that is not Running.
    CIdleFetch(CRecordset& set, std::function<void(EIdleFetch)> told);

    /// Goes on after an end: for a set that was opened or queried anew.
    void Restart() { m_State = EIdleFetch::Running; }
    EIdleFetch GetState() const { return m_State; }

    bool DoIdleProcessing(LONG count) override;

private:
    EIdleFetch FetchStep();

    CRecordset& m_Set;
    std::function<void(EIdleFetch)> m_Told;
    EIdleFetch m_State = EIdleFetch::Running;
};

} // namespace utility
