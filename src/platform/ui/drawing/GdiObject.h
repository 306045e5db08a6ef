#pragma once

#include "platform/base/Export.h"
#include "platform/base/object/Object.h"

namespace utility
{

/// A tool of a drawing context: pen, brush, font or bitmap.
///
/// It must live as long as a context has it selected. User-interface thread.
class UTILITY_UI_API CGdiObject : public CObject
{
    DECLARE_DYNAMIC(CGdiObject)

public:
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;

    /// Gives up what the tool is made of, so that it can be made anew; false if it was not made.
    virtual bool DeleteObject() = 0;

protected:
    CGdiObject() = default;
};

} // namespace utility
