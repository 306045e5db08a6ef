#pragma once

#include "platform/base/Export.h"
#include "platform/base/object/Exception.h"

namespace utility
{

struct _EXCEPTION_POINTERS;

/// A fault of the processor as an exception: thrown by pointer, and deleted by who catches it.
///
///     CWin32Exception::SetTranslator();
///     try
///     {
///         module.Run();
///     }
///     catch (CAccessViolation* exception)
///     {
///         const CExceptionGuard guard(exception);
///
/// The first caller's thread alone is covered; platform/system/Faults.h tells what that takes, and
/// where faults go otherwise. `Translate` and `Translator` may be called on any thread.
class UTILITY_CORE_API CWin32Exception : public CException
{
public:
    CWin32Exception() = default;
    CWin32Exception(const CWin32Exception&) : CException() {}

    /// Covers the calling thread; any later call does nothing, whatever thread it comes from.
    static void SetTranslator();

    /// Sets the bits of `mask` to those of `bits`, and gives the word before: which faults are
    /// translated, at first all. With mask 0 a plain read.
    ///
    ///     bit     fault                  bit      fault
    ///     0x1     access violation       0x100    invalid floating-point operation
    ///     0x2     breakpoint             0x200    floating-point overflow
    ///     0x4     misaligned access      0x400    floating-point stack
    ///     0x8     single step            0x800    floating-point underflow
    ///     0x10    array bounds           0x1000   integer division by zero
    ///     0x20    denormal operand       0x2000   integer overflow
    ///     0x40    floating division by 0 0x4000   privileged instruction
    ///     0x80    inexact result         0x8000   fault that cannot be continued
    ///                                    0x10000  any other
    static unsigned int Translate(unsigned int bits, unsigned int mask);

    /// Throws the exception of a code, or returns if its bit is clear. With null pointers it raises
    /// one by hand.
    static void Translator(unsigned int code, _EXCEPTION_POINTERS* pointers);
};

class UTILITY_CORE_API CAccessViolation : public CWin32Exception
{
};
class UTILITY_CORE_API CBreakpoint : public CWin32Exception
{
};
class UTILITY_CORE_API CDatatypeMisalignment : public CWin32Exception
{
};
class UTILITY_CORE_API CSingleStep : public CWin32Exception
{
};
class UTILITY_CORE_API CArrayBoundsExceeded : public CWin32Exception
{
};
class UTILITY_CORE_API CPrivInstruction : public CWin32Exception
{
};
class UTILITY_CORE_API CNoncontinuableException : public CWin32Exception
{
};

/// Any fault of reckoning.
class UTILITY_CORE_API CMathException : public CWin32Exception
{
};

class UTILITY_CORE_API CIntException : public CMathException
{
};
class UTILITY_CORE_API CIntDivideByZero : public CIntException
{
};
class UTILITY_CORE_API CIntOverflow : public CIntException
{
};

class UTILITY_CORE_API CFltException : public CMathException
{
};
class UTILITY_CORE_API CFltDenormalOperand : public CFltException
{
};
class UTILITY_CORE_API CFltDivideByZero : public CFltException
{
};
class UTILITY_CORE_API CFltInexactResult : public CFltException
{
};
class UTILITY_CORE_API CFltInvalidOperation : public CFltException
{
};
class UTILITY_CORE_API CFltOverflow : public CFltException
{
};
class UTILITY_CORE_API CFltStackCheck : public CFltException
{
};
class UTILITY_CORE_API CFltUnderflow : public CFltException
{
};

/// A fault that has no class of its own, such as an illegal instruction (0xC000001D) or a stack
/// that is used up (0xC00000FD).
class UTILITY_CORE_API CWin32UserException : public CWin32Exception
{
public:
    CWin32UserException() = default;
    CWin32UserException(const CWin32UserException&) = default;
    explicit CWin32UserException(unsigned int code) : m_Code(code) {}
    /// Makes the thread's stack ready for the next overflow, if this was one.
    ~CWin32UserException() override;

    unsigned int GetCode() const { return m_Code; }

private:
    unsigned int m_Code = 0;
};

} // namespace utility
