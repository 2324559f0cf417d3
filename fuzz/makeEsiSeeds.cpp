// makeEsiSeeds.cpp - cuts ESI files into small ones, each with one device and one of its sections. The fuzzer tries a
// hundred such pieces in the time of one whole file.
// Usage: makeEsiSeeds FOLDER FILE...
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <cstdio>

namespace {

constexpr int maxOfATag = 3; // children with the same tag that stay of a long list

/// Sync managers are referred to by their number, so all of them stay.
bool isThinned(const QString& tag)
{
    return tag != QLatin1String("Sm");
}

/// Keeps the first few children of each tag, all the way down.
void thinOut(QDomNode parent)
{
    QMap<QString, int> seen;
    for (QDomNode child = parent.firstChild(); !child.isNull();) {
        const QDomNode next = child.nextSibling();
        const QString tag = child.nodeName();
        if (isThinned(tag) && ++seen[tag] > maxOfATag)
            parent.removeChild(child);
        else
            thinOut(child);
        child = next;
    }
}

/// A document with the start tags down to `Devices` or `Modules`, and the vendor.
class Piece
{
public:
    explicit Piece(const QDomElement& root)
        : m_root(m_document.createElement(root.tagName()))
        , m_descriptions(m_document.createElement(QStringLiteral("Descriptions")))
    {
        m_document.appendChild(m_root);
        m_root.appendChild(m_document.importNode(root.firstChildElement(QStringLiteral("Vendor")), true));
        m_root.appendChild(m_descriptions);
    }

    QDomNode addList(const QString& tag) { return m_descriptions.appendChild(m_document.createElement(tag)); }
    QDomNode add(QDomNode list, const QDomNode& node, bool deep = true)
    {
        return list.appendChild(m_document.importNode(node, deep));
    }
    [[nodiscard]] bool write(const QString& path)
    {
        thinOut(m_document);
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(m_document.toByteArray(-1)) > 0;
    }

private:
    QDomDocument m_document;
    QDomElement m_root;
    QDomElement m_descriptions;
};

/// Tags of the children of a device, each once.
QStringList sectionsOf(const QDomElement& device)
{
    QStringList tags;
    for (QDomElement child = device.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        tags.append(child.tagName());
    tags.removeDuplicates();
    return tags;
}

/// One device with its product, its sync managers and one more section. Slots come with the modules of the file.
bool writeSection(const QDomElement& root, const QDomElement& device, const QString& section, const QString& path)
{
    Piece piece(root);
    QDomNode copy = piece.add(piece.addList(QStringLiteral("Devices")), device, false);
    for (QDomElement child = device.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        if (child.tagName() == section || child.tagName() == QLatin1String("Type")
            || child.tagName() == QLatin1String("Sm"))
            piece.add(copy, child);
    const QDomNode modules =
        root.firstChildElement(QStringLiteral("Descriptions")).firstChildElement(QStringLiteral("Modules"));
    if (section == QLatin1String("Slots") && !modules.isNull()) {
        const QDomNode list = piece.addList(QStringLiteral("Modules"));
        for (QDomNode child = modules.firstChild(); !child.isNull(); child = child.nextSibling())
            piece.add(list, child); // comments too, they name the groups
    }
    return piece.write(path);
}

bool writePieces(const QString& folder, const QString& path)
{
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file, true))
        return false;
    const QDomElement root = document.documentElement();
    const QDomNodeList devices = root.elementsByTagName(QStringLiteral("Device"));
    bool isWritten = true;
    for (int i = 0; i < devices.size(); ++i) {
        const QDomElement device = devices.at(i).toElement();
        for (const QString& section : sectionsOf(device))
            isWritten = writeSection(root, device, section,
                                     QStringLiteral("%1/%2-%3-%4.xml")
                                         .arg(folder, QFileInfo(path).baseName(), QString::number(i), section))
                        && isWritten;
    }
    return isWritten;
}

} // namespace

int main(int argc, char** argv)
{
    bool isWritten = argc > 2;
    for (int i = 2; i < argc; ++i)
        isWritten = writePieces(QFile::decodeName(argv[1]), QFile::decodeName(argv[i])) && isWritten;
    if (!isWritten)
        std::fputs("Usage: makeEsiSeeds FOLDER FILE...\nA file could not be read, or no piece written.\n", stderr);
    return isWritten ? 0 : 1;
}
