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

/// Whether a link has nothing at its end; other errors say that it is not known what is there.
bool leadsNowhere(const std::error_code& error)
{
    return error == std::errc::no_such_file_or_directory || error == std::errc::too_many_symbolic_link_levels;
}

/// Takes what is in a folder and is none.
/// @param own    of the path itself, not of what it links to
/// @param error  why that is not known
void addFile(const std::string& path, const fs::file_status& own, std::error_code error, FileList& list)
{
    const bool isLink = fs::is_symlink(own);
    const fs::file_status meant = isLink ? fs::status(path, error) : own;
    if (fs::is_regular_file(meant))
        list.paths += pathOf(path);
    else if (error && !(isLink && leadsNowhere(error)))
        list.unreadable.push_back({pathOf(path), QString::fromStdString(error.message()), false});
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
            addFile(path, own, error, list);
            continue;
        }
        const std::vector<std::string> names = namesIn(path, error);
        if (error)
            list.unreadable.push_back({pathOf(path), QString::fromStdString(error.message()), true});
        for (auto name = names.rbegin(); name != names.rend(); ++name)
            waiting.push_back(inFolder(path, *name));
    }
}

} // namespace

FileList listFiles(const QStringList& paths, const std::function<bool(const QString&)>& isStream)
{
    FileList list;
    for (const QString& path : paths) {
        std::error_code error;
        if (!isStream(path) && fs::is_directory(bytesOf(path), error)) {
            addFolder(bytesOf(path), list);
        } else {
            list.named.insert(list.paths.size());
            list.paths += path;
        }
    }
    return list;
}

} // namespace find
