// xmlLimits.h - the limits of ESI files: device descriptions stay far below them, and what goes beyond would keep the
// XML parser busy for hours, take all memory or overflow the stack. docs/esi-limits.md lists them for users.
#pragma once

/// Size of a file in bytes. ESI files reach about 30 MB, and a document takes many times the memory of its file.
inline constexpr int maxXmlFileBytes = 256 * 1024 * 1024;

/// Elements, attributes, comments, CDATA sections, processing instructions and references to undeclared entities
/// together, and texts. What elements `Device` or `Slots` inside each other hold counts for each of them. ESI files of
/// 30 MB reach about 700,000. Each takes some hundred bytes in document and record, but as few as 3 in the file.
inline constexpr int maxNodes = 2500000;

/// Elements `Device` in a file. ESI files reach some hundreds. The record of a device takes far more than its element.
inline constexpr int maxDevices = 100000;

/// Elements directly in elements `Modules`, whatever their name: each may be read as a module, whose record takes more
/// than its element. ESI files reach some hundreds.
inline constexpr int maxModules = 500000;

/// Depth of elements; the root element is at depth 1. ESI files reach about 20. The parser and the document tree
/// recurse, so an unbounded depth would overflow the stack.
inline constexpr int maxNesting = 1000;

/// Attributes of one element, repeated ones included. ESI files reach about 20. The document looks through all
/// attributes of an element before it adds one.
inline constexpr int maxAttributes = 100;

/// Different namespace prefixes in a file. ESI files have one or two. At the end of each element the parser compares
/// all prefixes with one another.
inline constexpr int maxPrefixes = 16;

/// Elements `Device` inside each other, and elements `Slots`. ESI files have none. What is in the innermost counts for
/// each around it, so nesting multiplies a file.
inline constexpr int maxInEachOther = 8;

/// Elements with "Device" in their names inside each other. ESI files have two, `Devices` and `Device`. What is in such
/// an element may be a section of a device, and the text of a section is that of all elements in it.
inline constexpr int maxDeviceParents = 16;

/// Characters that the names of slot groups may add to the names of slots, counted by `GroupNameCount`. ESI files reach
/// about 100. Each name goes to every slot of its group, so a small file could ask for more than any memory holds.
inline constexpr int maxGroupNameCopies = 64 * 1024 * 1024;

/// Length of the document type declarations, in characters. ESI files have none. The parser descends into each
/// parenthesis of a content model, and goes through all entities again for each that is declared.
inline constexpr int maxDocumentTypeLength = 4096;

/// References to entities inside document type declarations, whose effects multiply: the longest text that a small file
/// can make of itself is the product of these two limits and of the length of the declaration.
inline constexpr int maxNestedReferences = 4;

/// References to entities in a file that declares entities itself. A reference in the text to a character, by its
/// number or by one of the five predefined names, is that character alone and does not count.
inline constexpr int maxReferences = 250;
