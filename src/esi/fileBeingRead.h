// fileBeingRead.h - which file is being read, for a program that ends on an error.
#pragma once

#include <QString>

/// Names the file that is being read as long as an object of this class lives. One at a time in each thread.
/// When an exception passes through, the name stays: whoever reports the error wants to know the file.
class FileBeingRead
{
public:
    explicit FileBeingRead(const QString& path);
    ~FileBeingRead();
    FileBeingRead(const FileBeingRead&) = delete;
    FileBeingRead& operator=(const FileBeingRead&) = delete;
    FileBeingRead(FileBeingRead&&) = delete;
    FileBeingRead& operator=(FileBeingRead&&) = delete;

    /// Path of the file being read, or of the one whose reading failed with an exception; else empty.
    [[nodiscard]] static QString path();

private:
    int m_exceptionsAtStart;
};
