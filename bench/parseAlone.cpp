// parseAlone.cpp - parses files in turn with `QDomDocument::setContent` and does nothing else: what the command is
// measured against. Files are given as arguments; exit status 1 if one is not well-formed.
#include <QDomDocument>
#include <QFile>

#include <algorithm>

int main(int argc, char** argv)
{
    const auto parses = [](const char* path) {
        QFile file(QFile::decodeName(path));
        QDomDocument document; // gone before the next file is parsed
        return file.open(QIODevice::ReadOnly | QIODevice::Text) && document.setContent(&file, true);
    };
    return std::all_of(argv + 1, argv + argc, parses) ? 0 : 1;
}
