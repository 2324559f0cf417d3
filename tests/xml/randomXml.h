// randomXml.h - ESI files at random, most of them well-formed: mixed content, CDATA beside text, comments and
// instructions everywhere, references, all kinds of line ends, attributes twice and in any order, prefixes, encodings.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTextCodec>

#include <random>

/// Makes one file after the other; the same ones from the same seed.
class RandomXml
{
public:
    explicit RandomXml(unsigned seed)
        : m_generator(seed)
    {}

    QByteArray next()
    {
        m_budget = 60;
        QString text = misc() + element(QStringLiteral("EtherCATInfo"), 0) + misc();
        if (oneIn(40))
            text.prepend(QStringLiteral("<!DOCTYPE EtherCATInfo>"));
        QByteArray bytes = encoded(text);
        if (oneIn(6))
            damage(bytes);
        return bytes;
    }

private:
    int upTo(int last) { return std::uniform_int_distribution<int>(0, last)(m_generator); }
    bool oneIn(int count) { return upTo(count - 1) == 0; }
    QString oneOf(const QStringList& words) { return words.at(upTo(words.size() - 1)); }

    QString misc()
    {
        return oneIn(3) ? oneOf({"\n", "\r\n", "<!-- beside the root -->", "<?p d?>\n", " \t"}) : QString();
    }

    QString name()
    {
        static const QStringList names{
            "Vendor",    "Id",       "Name",        "Descriptions", "Devices",     "Device",
            "Type",      "Sm",       "Fmmu",        "Mailbox",      "CoE",         "InitCmd",
            "Index",     "SubIndex", "Data",        "Transition",   "RxPdo",       "TxPdo",
            "Entry",     "BitLen",   "DataType",    "Dc",           "OpMode",      "AssignActivate",
            "Slots",     "Slot",     "ModuleIdent", "ModuleClass",  "Class",       "SlotGroupData",
            "Modules",   "Module",   "Profile",     "ProfileNo",    "ChannelInfo", "Dictionary",
            "DataTypes", "Objects",  "Object",      "SubItem",      "Info",        "DefaultData",
            "Flags",     "Access",   "x",           "_y-1.2",       "MyDevice"};
        const QString plain = oneOf(names);
        if (oneIn(25))
            return oneOf({"p:", "xsi:", "undeclared:"}) + plain;
        return oneIn(300) ? QStringLiteral("Gr\u00F6\u00DFe") : plain;
    }

    /// @param depth  of the element; deep ones are small
    QString element(const QString& tag, int depth)
    {
        QString text = QLatin1Char('<') + tag + attributes() + oneOf({"", "", "", " ", "\r\n"});
        if (oneIn(8) || --m_budget <= 0)
            return text + QStringLiteral("/>");
        text += QLatin1Char('>');
        for (int child = upTo(depth < 3 ? 6 : 3); child > 0; --child)
            text += oneIn(2) && depth < 8 ? element(name(), depth + 1) : leaf();
        return text + QStringLiteral("</") + tag + oneOf({"", "", "", "\n"}) + QLatin1Char('>');
    }

    QString attributes()
    {
        static const QStringList names{
            "ProductCode", "RevisionNo",   "Sm",        "Fixed",        "Mandatory",    "Default",
            "Virtual",     "StartAddress", "SlotGroup", "MaxInstances", "DependOnSlot", "p:Sm",
            "xmlns:p",     "xmlns",        "xsi:x",     "OSMax",        "PdoAssign",    "Sm"};
        QString text;
        for (int count = oneIn(2) ? upTo(4) : 0; count > 0; --count) {
            const QString quote = oneOf({"'", "\""});
            QString value = characters(QString());
            value.remove(QLatin1Char('<')).remove(quote);
            text += oneOf({" ", " ", "\r\n\t"}) + oneOf(names) + oneOf({"=", "=", " = "}) + quote + value + quote;
        }
        return text;
    }

    QString leaf()
    {
        switch (upTo(9)) {
        case 0:
            return QStringLiteral("<![CDATA[") + characters(QStringLiteral("<&]]")) + QStringLiteral("]]>");
        case 1:
            return QStringLiteral("<!--") + oneOf({"", " a comment ", "a - b", "\r\n"}) + QStringLiteral("-->");
        case 2:
            return oneOf({"<?p?>", "<?p data?>", "<?p ?\?>"});
        case 3:
            return oneOf({" ", "\r\n\t", "\r", QStringLiteral("\u00A0\u3000")});
        default:
            return characters(QString());
        }
    }

    QString characters(const QString& more)
    {
        static const QStringList pieces{"1",
                                        "#x1A00",
                                        "0x7000",
                                        "true",
                                        "BOOL",
                                        "UINT",
                                        "Inputs",
                                        "Outputs",
                                        "MBoxOut",
                                        "PS",
                                        "rw",
                                        "0A0B",
                                        "402",
                                        "5001",
                                        "x y",
                                        " ",
                                        "\r\n",
                                        "\n",
                                        "\r",
                                        "\t",
                                        "&amp;",
                                        "&lt;",
                                        "&#65;",
                                        "&#xE9;",
                                        "&#32;",
                                        "]]",
                                        ">",
                                        "&quot;",
                                        "-->",
                                        "![CDATA[",
                                        QStringLiteral("\u00E9\u00DF"),
                                        QStringLiteral("\u4E2D\u6587"),
                                        QStringLiteral("\U0001F600"),
                                        "ABC",
                                        "-5",
                                        "&apos;"};
        QString text;
        for (int count = upTo(3); count >= 0; --count)
            text += !more.isEmpty() && oneIn(3) ? more : oneOf(pieces);
        if (oneIn(200))
            text += oneOf({"&unknown;", "&#1;", "&#x1F600;", "&#xD83D;", "&#xFFFF;", QStringLiteral("\x01")});
        return text;
    }

    QByteArray encoded(const QString& text)
    {
        switch (upTo(9)) {
        case 0:
            return "<?xml version='1.0' encoding='ISO-8859-1'?>" + text.toLatin1();
        case 1:
            return "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>\r\n" + text.toUtf8();
        case 2:
            return QTextCodec::codecForName(oneIn(2) ? "UTF-16LE" : "UTF-16BE")->fromUnicode(text);
        case 3:
            return "<?xml version='1.0' encoding='windows-1252'?>"
                   + QTextCodec::codecForName("windows-1252")->fromUnicode(text);
        case 4:
            return text.toUtf8();
        case 5:
            return "<?xml version='1.0' encoding='utf-8'?>" + text.toLatin1(); // that is not true
        default:
            return "<?xml version=\"1.0\"?>\n" + text.toUtf8();
        }
    }

    /// Removes, repeats or replaces a byte, or cuts the file.
    void damage(QByteArray& bytes)
    {
        static const QByteArray odd("<>&;'\"=/-!?[]\0\xFF \x80", 18);
        const int position = upTo(bytes.size() - 1);
        switch (upTo(3)) {
        case 0:
            bytes.remove(position, 1);
            break;
        case 1:
            bytes.insert(position, bytes.at(position));
            break;
        case 2:
            bytes[position] = odd.at(upTo(odd.size() - 1));
            break;
        default:
            bytes.truncate(position);
        }
    }

    std::mt19937 m_generator;
    int m_budget = 0; ///< elements that may still have content
};
