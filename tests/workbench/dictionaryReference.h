// dictionaryReference.h - the rows of the CoE tab, straight from its rules: by walking all lists for each row. It is
// slow and shares nothing with the code that it is compared with but the conversions of single values.
#pragma once

#include "esi/xmlCharConversion.h"
#include "model/deviceRecords.h"
#include "workbench/coeTreeParts.h"

#include <QStringList>
#include <QVector>

#include <string>

/// Walks a dictionary as the rules say.
class DictionaryReference
{
public:
    explicit DictionaryReference(const DeviceDictionary& dictionary)
        : m_dictionary(dictionary)
    {}

    [[nodiscard]] QVector<ShownObject> objects() const
    {
        QVector<ShownObject> all;
        for (const struct_Object& object : m_dictionary.vobject) {
            const QString pattern = xmlGetStringuint(object.index) + ":%1";
            ShownObject expected;
            expected.texts << pattern.arg(0) << QString::fromStdString(object.Name)
                           << xmlGetStringEnumNmtoken(object.flags.Access) << QString::number(object.BitSize)
                           << (contains(object.Type, "DT") ? QString() : QString::fromStdString(object.Type))
                           << value(object.Type, object.Info);
            scan(pattern, object.Type, expected, {});
            all << expected;
        }
        return all;
    }

private:
    static bool contains(const std::string& text, const char* mark) { return text.find(mark) != std::string::npos; }

    static QString value(const std::string& type, const str_Info& info)
    {
        return contains(type, "STRING") ? QString::fromStdString(info.DefaultString)
                                        : QString::number(info.DefaultValue);
    }

    [[nodiscard]] int dataTypeSize(const std::string& name) const
    {
        for (const struct_DataTypes& dataType : m_dictionary.vdatatype)
            if (dataType.Name == name)
                return dataType.BitSize;
        return 0;
    }

    [[nodiscard]] str_Info objectInfo(std::uint32_t index, std::uint32_t subIndex) const
    {
        for (const struct_Object& object : m_dictionary.vobject)
            if (object.index == index && subIndex < object.Info.vsubitem.size())
                return object.Info.vsubitem[subIndex].Info.Info;
        return {};
    }

    /// @param above  names that are being scanned further up
    void scan(const QString& pattern, const std::string& type, ShownObject& item, QVector<std::string> above) const
    {
        if (!contains(type, "DT") || above.contains(type))
            return;
        above << type;
        for (const struct_DataTypes& dataType : m_dictionary.vdatatype) {
            if (dataType.Name != type)
                continue;
            for (std::size_t place = 0; place < dataType.vsubitem.size(); ++place) {
                const DataTypeSubItem& subItem = dataType.vsubitem[place];
                const std::uint32_t index = toUint(QString::fromStdString(dataType.Name));
                const QString shown = value(subItem.Type, objectInfo(index, subItem.SubIdx));
                if (place == 0) {
                    item.texts[5] = shown;
                    continue;
                }
                scan(pattern, subItem.Type, item, above);
                if (!contains(subItem.Type, "DT"))
                    item.children << QStringList{pattern.arg(subItem.SubIdx),
                                                 QString::fromStdString(subItem.Name),
                                                 xmlGetStringEnumNmtoken(subItem.flag.Access),
                                                 QString::number(subItem.BitSize),
                                                 QString::fromStdString(subItem.Type),
                                                 shown};
            }
            if (dataType.varrayinfo.empty())
                continue;
            for (int i = dataType.varrayinfo[0].LBound; i <= dataType.varrayinfo[0].Elements; ++i)
                item.children << QStringList{pattern.arg(i), QString("SubIndex %1").arg(i), item.texts[2],
                                             QString::number(dataTypeSize(dataType.BaseType)),
                                             QString::fromStdString(dataType.BaseType)};
        }
    }

    const DeviceDictionary& m_dictionary;
};
