#include "esi/xml/xmlFileSource.h"

#include "esi/xml/documentTypeLimit.h"
#include "esi/xml/xmlLimits.h"

#include <QByteArray>
#include <QIODevice>

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace {

/// The next bytes of a file, fewer than asked for only at its end: a pipe gives what it happens to hold.
QByteArray blockOf(QIODevice& file, qint64 size)
{
    QByteArray block = file.read(size);
    while (!block.isEmpty() && block.size() < size) {
        const QByteArray more = file.read(size - block.size());
        if (more.isEmpty())
            break;
        block += more;
    }
    return block;
}

} // namespace

XmlFileSource::XmlFileSource(QIODevice& file)
    : m_file(file)
{
    file.setTextModeEnabled(false);
}

void XmlFileSource::fetchData()
{
    setData(nextText());
}

QString XmlFileSource::readBeginning()
{
    QString beginning;
    int sizeToJudge = 0; // doubled each time, so that a long beginning is not judged for each block of it
    for (QString text = nextText(); !text.isEmpty(); text = nextText()) {
        beginning += text;
        if (m_file.isSequential() || beginning.size() < sizeToJudge)
            continue;
        if (isEnoughForDocumentTypeLimit(beginning))
            break;
        sizeToJudge = beginning.size() * 2;
    }
    setData(beginning);
    return beginning;
}

bool XmlFileSource::isTooLarge() const
{
    return m_bytesRead > maxXmlFileBytes || m_file.size() > maxXmlFileBytes;
}

QString XmlFileSource::nextText()
{
    QString text;
    while (text.isEmpty() && !isTooLarge()) {
        const QByteArray block = blockOf(m_file, blockSize);
        if (block.isEmpty())
            break;
        m_bytesRead += block.size();
        if (!m_decoder.has_value())
            m_decoder.emplace(block);
        text = m_decoder->decode(block);
    }
    return text;
}

QT_WARNING_POP
