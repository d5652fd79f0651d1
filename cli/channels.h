// Where the command reads and writes, so that it can be called within a program as well.
#pragma once

#include <QString>
#include <cstdio>
#include <functional>
#include <string_view>

struct Channels
{
    /// Takes whole lines of the answer; false if nobody reads them any more.
    std::function<bool(std::string_view)> out;
    /// Takes messages.
    std::function<void(std::string_view)> err;
    /// What "-" reads from.
    std::FILE* input = nullptr;
    /// The folder with the saved configuration.
    QString home;
    /// Progress is shown on `err`.
    bool showsProgress = false;
};
