// xmlLimits.h - what no device description reaches, and what would keep the XML parser busy for hours or overflow its
// stack.
#pragma once

#include "esi/xml/xmlFormatError.h"

#include <optional>

/// Largest file that is read, in bytes. ESI files reach about 30 MB, and a document takes many times the memory of its
/// file.
inline constexpr int largestXmlFile = 256 * 1024 * 1024;

/// Most elements, attributes, comments, CDATA sections, processing instructions and references to undeclared entities
/// of a file, all of them together, and most texts. What stands in elements `Device` or `Slots` inside each other
/// counts for each of them, since each reads it. ESI files of 30 MB reach about 700,000. Each takes some hundred bytes
/// in the document and as much again in its record, but as few as 3 in the file.
inline constexpr int mostNodes = 2500000;

/// Most elements `Device` in a file. ESI files reach some hundreds. The record of a device takes far more than its
/// element.
inline constexpr int mostDevices = 100000;

/// Most elements directly in elements `Modules`, whatever their name: each may be read as a module, whose record takes
/// more than its element. ESI files reach some hundreds.
inline constexpr int mostModules = 500000;

/// Deepest nesting of elements that is read; the root element is at depth 1. ESI files reach about 20. The parser and
/// the document tree recurse, so an unbounded depth would overflow the stack.
inline constexpr int deepestNesting = 1000;

/// Most attributes of one element, repeated ones included. ESI files reach about 20. The document looks through all
/// attributes of an element before it adds one.
inline constexpr int mostAttributes = 100;

/// Most different namespace prefixes in a file. ESI files have one or two. At the end of each element the parser
/// compares all prefixes with one another.
inline constexpr int mostPrefixes = 16;

/// Most elements `Device` inside each other, and most elements `Slots`. ESI files have no such thing. What is in the
/// innermost counts for each around it, so nesting multiplies a file.
inline constexpr int mostInEachOther = 8;

/// Most elements with "Device" in their names inside each other. ESI files have two, `Devices` and `Device`. What
/// stands in such an element may be a section of a device, and the text of a section is that of all elements in it.
inline constexpr int mostDeviceParents = 16;

/// Most characters that the names of slot groups may add to the names of slots, counted by `GroupNameCount`. ESI files
/// reach about 100. Each name goes to every slot of its group, so a small file could ask for more than any memory
/// holds.
inline constexpr int maxGroupNameCopies = 64 * 1024 * 1024;

/// Longest document type declaration, in characters. ESI files have none. The parser descends into each parenthesis of
/// a content model, and goes through all entities again for each that is declared.
inline constexpr int longestDocumentType = 4096;

/// Most references to entities inside document type declarations, and most in a file that declares entities itself.
/// Each of those inside may multiply what one in the text stands for: the longest text that a small file can make of
/// itself is the product of both and of the length of the declaration. A reference in the text to a character, by its
/// number or by one of the five predefined names, stands for that character alone and does not count.
inline constexpr int mostNestedReferences = 4;
inline constexpr int mostReferences = 250;

/// Holds the document type declarations of a file, and the entities that they declare, against the limits above;
/// references to parameter entities are refused at all. The parser is not asked, for it is not safe to let it see such
/// a declaration.
/// @param text  a whole XML file
/// @return      the first limit that is broken, with its place; nothing if none is
[[nodiscard]] std::optional<XmlFormatError> brokenDocumentTypeLimit(const QString& text);

/// Whether the beginning of a file is enough to know that its whole text breaks no limit of document types, or which
/// one: all that may stand before the root element is in it, and no entity is declared there. References to declared
/// entities count up to the end of the file.
[[nodiscard]] bool isEnoughForDocumentTypeLimit(const QString& beginning);
