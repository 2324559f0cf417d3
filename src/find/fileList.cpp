#include "find/fileList.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

namespace find {

namespace {

namespace fs = std::filesystem;

std::string bytesOf(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

QString pathOf(const std::string& bytes)
{
    return QFile::decodeName(bytes.c_str());
}

/// What is in a folder, by name in byte order.
std::vector<std::string> namesIn(const std::string& folder, std::error_code& error)
{
    std::vector<std::string> names;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error))
        names.push_back(entry->path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string inFolder(const std::string& folder, const std::string& name)
{
    return folder.empty() || folder.back() == '/' ? folder + name : folder + '/' + name;
}

/// Goes through folders without recursion, however deep they lie in each other.
void addFolder(const std::string& folder, FileList& list)
{
    std::vector<std::string> waiting{folder}; // the next one last
    while (!waiting.empty()) {
        const std::string path = waiting.back();
        waiting.pop_back();
        std::error_code error;
        const bool isNamed = path == folder;
        const fs::file_status own = isNamed ? fs::status(path, error) : fs::symlink_status(path, error);
        if (!fs::is_directory(own)) {
            if (fs::is_regular_file(fs::status(path, error)))
                list.paths += pathOf(path);
            continue;
        }
        error.clear();
        std::vector<std::string> names = namesIn(path, error);
        if (error)
            list.unreadable.emplace_back(pathOf(path), QString::fromStdString(error.message()));
        for (auto name = names.rbegin(); name != names.rend(); ++name)
            waiting.push_back(inFolder(path, *name));
    }
}

} // namespace

FileList listFiles(const QStringList& paths)
{
    FileList list;
    for (const QString& path : paths) {
        std::error_code error;
        if (fs::is_directory(bytesOf(path), error)) {
            addFolder(bytesOf(path), list);
        } else {
            list.named.insert(list.paths.size());
            list.paths += path;
        }
    }
    return list;
}

} // namespace find
