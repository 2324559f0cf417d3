#include "cli/show/showCsv.h"

#include "cli/show/showWords.h"

#include <ostream>

namespace {

std::string quoted(const std::string& field)
{
    std::string text = "\"";
    for (const char character : field) {
        if (character == '"')
            text += '"';
        text += character;
    }
    return text + '"';
}

} // namespace

void writeCsvRow(std::ostream& out, const std::vector<std::string>& fields)
{
    const char* separator = "";
    for (const std::string& field : fields) {
        const std::string utf8 = validUtf8(field);
        out << separator << (utf8.find_first_of(",\"\r\n") == std::string::npos ? utf8 : quoted(utf8));
        separator = ",";
    }
    out << "\r\n";
}
