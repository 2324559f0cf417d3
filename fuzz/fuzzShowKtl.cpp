// fuzzShowKtl.cpp - any bytes as a KTL file: they are shown as JSON, as text for a terminal, and in each table.
#include "fuzzShow.h"

#include <QString>

#include <cstdint>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    show::ShownFile file;
    file.name = "fuzz.ktl";
    file.setKtl(std::vector<unsigned char>(data, data + size));
    showNowhere(file, jsonForm());
    showNowhere(file, textForm(show::TextContent::Summary));
    showNowhere(file, textForm(show::TextContent::Full));
    for (const char* name : {"dictionary", "pdo", "startup"}) {
        show::Form table;
        table.table = show::tableNamed(QString::fromLatin1(name));
        table.csv = show::CsvForm::Spreadsheet;
        showNowhere(file, table);
    }
    return 0;
}
