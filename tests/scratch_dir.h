// A directory of its own for a test that reads and writes files, and a locale with a decimal comma.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <clocale>
#include <string>

/// The working directory for the length of a test; empty at first, gone afterwards.
class ScratchDir
{
public:
    ScratchDir() { QDir::setCurrent(dir.path()); }
    ~ScratchDir() { QDir::setCurrent(before); }
    ScratchDir(const ScratchDir&) = delete;
    ScratchDir& operator=(const ScratchDir&) = delete;

    static void write(const char* name, const std::string& bytes)
    {
        QFile file(QString::fromUtf8(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }

    static std::string read(const char* name)
    {
        QFile file(QString::fromUtf8(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string("(no such file)");
    }

private:
    const QString before = QDir::currentPath();
    const QTemporaryDir dir;
};

/// The C library writes decimal commas while this lives, if the machine has such a locale.
class CommaLocale
{
public:
    CommaLocale() : before(std::setlocale(LC_ALL, nullptr)), present(std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr)
    {}
    ~CommaLocale() { std::setlocale(LC_ALL, before.c_str()); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    const std::string before;
    const bool present;
};
