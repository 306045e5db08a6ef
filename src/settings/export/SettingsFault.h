#pragma once

#include "platform/base/String.h"

#include <cstddef>

namespace utility
{

enum class ESettingsFault
{
    None,
    // The store
    KeyUnreadable, // the key is not there, or the store cannot be read
    KeyUnwritable, // the store refused; it stays as it was
    CannotStand,   // a value or key that the file could not give back
    // The file as a whole
    FileUnreadable, // it is not there, cannot be read, or is longer than 1 GB
    FileUnwritable, // it stays as it was
    NoText,         // bytes that are no UTF-8
    // What stands at a place of it
    OtherFormat, // no file of this format
    NewerFormat, // of a version that this library does not know
    OtherKey,    // settings of a key of another name
    Unexpected,  // something that the format does not know there
    OpenEnd,     // the file ends before what begins here is closed
    WrongClose,  // a close tag of another name
    BadName,     // a name that no key or value can have
    BadEscape,   // an "&" that is no reference to a character, a "\" before what needs none
    BadUnit,     // a line end or another control within a text
    Twice,       // two values, or two sub-keys, of one name
    UnknownType,
    BadValue, // not of its type
    TooDeep   // a key's path is longer than CSettingsTree::PATH_LIMIT
};

/// Why settings could not be exported or imported.
struct CSettingsFault
{
    ESettingsFault m_Kind = ESettingsFault::None;
    CString m_Name;   // of the value, type or name that it is about, where there is one
    int m_Line = 0;   // from 1; 0 where it is about no place in the file
    int m_Column = 0; // in characters, from 1
};

} // namespace utility
