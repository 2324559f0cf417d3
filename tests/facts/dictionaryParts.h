// dictionaryParts.h - dictionaries for tests of rules, each thing on a line of its own.
#pragma once

#include <QByteArray>

namespace dictionaryParts {

/// A `Profile` with a dictionary. On the lines that follow its first one are the data types, then comes one line
/// between, then come the objects.
inline QByteArray dictionary(const QByteArray& types, const QByteArray& objects)
{
    return "<Profile><Dictionary><DataTypes>\n" + types + "</DataTypes><Objects>\n" + objects
           + "</Objects></Dictionary></Profile>\n";
}

/// A data type on one line.
inline QByteArray dataType(const QByteArray& name, int bits, const QByteArray& more = {})
{
    return "<DataType><Name>" + name + "</Name><BitSize>" + QByteArray::number(bits) + "</BitSize>" + more
           + "</DataType>\n";
}

/// An array on one line.
inline QByteArray arrayType(const QByteArray& name, int bits, const QByteArray& base, int elements)
{
    return dataType(name, bits,
                    "<BaseType>" + base + "</BaseType><ArrayInfo><LBound>1</LBound><Elements>"
                        + QByteArray::number(elements) + "</Elements></ArrayInfo>");
}

/// A record, which begins and ends on lines of its own.
inline QByteArray recordType(const QByteArray& name, int bits, const QByteArray& subItems)
{
    return "<DataType><Name>" + name + "</Name><BitSize>" + QByteArray::number(bits) + "</BitSize>\n" + subItems
           + "</DataType>\n";
}

/// A sub-item of a record on one line.
/// @param subIndex  none if it is empty
inline QByteArray subItem(const QByteArray& subIndex, const QByteArray& name, const QByteArray& type, int bits,
                          int offset, const QByteArray& flags = {})
{
    return "<SubItem>" + (subIndex.isEmpty() ? QByteArray() : "<SubIdx>" + subIndex + "</SubIdx>") + "<Name>" + name
           + "</Name><Type>" + type + "</Type><BitSize>" + QByteArray::number(bits) + "</BitSize><BitOffs>"
           + QByteArray::number(offset) + "</BitOffs>" + (flags.isEmpty() ? flags : "<Flags>" + flags + "</Flags>")
           + "</SubItem>\n";
}

/// An object on one line.
inline QByteArray object(const QByteArray& index, const QByteArray& type, int bits, const QByteArray& more = {})
{
    return "<Object><Index>" + index + "</Index><Name>Object</Name><Type>" + type + "</Type><BitSize>"
           + QByteArray::number(bits) + "</BitSize>" + more + "</Object>\n";
}

/// The flags of an object or sub-item.
/// @param mapping  no element if it has null data
inline QByteArray flags(const QByteArray& access, const QByteArray& mapping = {})
{
    return "<Access>" + access + "</Access>"
           + (mapping.isNull() ? QByteArray() : "<PdoMapping>" + mapping + "</PdoMapping>");
}

/// The flags of an object, with the element around them.
inline QByteArray objectFlags(const QByteArray& access, const QByteArray& mapping = {})
{
    return "<Flags>" + flags(access, mapping) + "</Flags>";
}

} // namespace dictionaryParts
