// xmlFileSource.h - the characters of an XML file, read and decoded while the parser asks for them.
#pragma once

#include "esi/xml/xmlDecoding.h"

#include <QString>
#include <QXmlInputSource>

#include <optional>

class QIODevice;

// The parser that reads from here is marked as outdated; `boundedXmlReader.cpp` says why it stays in use.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

/// Hands a file to the parser block by block: its whole text would take a fifth of the memory of its tree, at the time
/// when that is largest. Line ends stay as they are in the file: its text mode is switched off.
class XmlFileSource : public QXmlInputSource
{
public:
    /// Bytes of a file that are read at a time: a read takes memory for all that it asks for, so it asks for little.
    static constexpr int blockSize = 65536;
    static_assert(XmlDecoder::maxDeclarationBytes <= blockSize);

    /// @param file  open for reading, at its start; must outlive the source
    explicit XmlFileSource(QIODevice& file);

    /// Reads on and makes what was read the next input of the parser.
    void fetchData() override;

    /// Reads as much of the file as it takes to hold it against the limits for document types, and makes that the input
    /// of the parser. A file that cannot be read twice is read whole.
    /// @return  the beginning; of a file that is too large it may be any part
    [[nodiscard]] QString readBeginning();

    /// Whether more bytes were there than a file may have; the parser got a part of them. The size is that of what is
    /// read, since a device or pipe does not say its own.
    [[nodiscard]] bool isTooLarge() const;

protected:
    /// Text of the next bytes, none at the end of the file or of what may be read of it.
    virtual QString nextText();

private:
    QIODevice& m_file;
    qint64 m_bytesRead = 0;
    std::optional<XmlDecoder> m_decoder; ///< made for the first bytes
};

QT_WARNING_POP
