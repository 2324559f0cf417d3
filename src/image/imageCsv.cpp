// imageCsv.cpp - process images as comma-separated values.
#include "image/imageWords.h"
#include "image/imageWriters.h"
#include "show/csvWriter.h"
#include "show/cutText.h"
#include "show/showWords.h"

namespace image {

namespace {

using Fields = std::vector<std::string>;

void append(Fields& to, const Fields& more)
{
    to.insert(to.end(), more.begin(), more.end());
}

/// What a row tells of its PDO; nothing of padding.
Fields pdoFields(const Pdo* pdo)
{
    if (pdo == nullptr)
        return {{}, {}, {}};
    return {show::hexText(pdo->index), show::startOf(pdo->name),
            pdo->place < 0 ? std::string() : std::to_string(pdo->place + 1)};
}

Fields objectFields(const Row& row)
{
    if (row.kind == RowKind::Padding)
        return {{}, {}, {}, {}, {}};
    return {show::hexText(row.index), std::to_string(row.subIndex), row.name, row.type, show::linkWords(row.link)};
}

class ImageCsvWriter final : public Writer
{
public:
    explicit ImageCsvWriter(std::ostream& out)
        : m_csv(out, show::CsvForm::Plain)
    {}

    void begin() override
    {
        m_csv.writeRow({"file",        "device", "deviceName", "vendorId",  "productCode", "revisionNo", "direction",
                        "syncManager", "byte",   "bit",        "bitLength", "kind",        "pdo",        "pdoName",
                        "slot",        "index",  "subIndex",   "name",      "type",        "link"});
    }

    void write(const Device& device) override
    {
        for (const Area& area : device.areas) {
            const Fields place{file().name,
                               std::to_string(device.number),
                               show::startOf(device.name),
                               show::hexText(device.vendor),
                               show::hexText(device.product),
                               show::hexText(device.revision),
                               std::string(show::dataDirection(area.isInput)),
                               std::to_string(area.number)};
            for (const Pdo& pdo : area.pdos)
                for (const Row& row : pdo.rows)
                    write(place, row, &pdo);
            if (area.padding.has_value())
                write(place, *area.padding, nullptr);
        }
    }

private:
    void write(const Fields& place, const Row& row, const Pdo* pdo)
    {
        Fields fields = place;
        append(fields, {std::to_string(facts::byteOf(row.bit)), std::to_string(facts::bitInByte(row.bit)),
                        std::to_string(row.bits), std::string(kindName(row.kind))});
        append(fields, pdoFields(pdo));
        append(fields, objectFields(row));
        m_csv.writeRow(fields);
    }

    show::CsvWriter m_csv;
};

} // namespace

std::unique_ptr<Writer> makeCsvWriter(std::ostream& out)
{
    return std::make_unique<ImageCsvWriter>(out);
}

} // namespace image
