// A fuzz target: one function that is given bytes, good or bad, and checks what must hold for any of them. `driver.cpp`
// calls it in a loop; libFuzzer can do so instead.
#pragma once

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

/// Ends the program if a claim does not hold; the driver has kept the bytes.
inline void require(bool holds, const char* claim, const char* file = __builtin_FILE(), int line = __builtin_LINE())
{
    if (holds)
        return;
    std::fprintf(stderr, "%s:%d: not so: %s\n", file, line, claim);
    std::abort();
}

template <std::size_t N>
bool isTerminated(const char (&field)[N])
{
    return ::strnlen(field, N) < N;
}

/// In a folder that lives as long as the program: in memory where there is such a place, because a disk takes much
/// longer for a small file than a target does.
inline std::string scratchFile(const char* name)
{
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    static const QTemporaryDir folder((memory.isWritable() ? memory.filePath() : QDir::tempPath()) +
                                      QStringLiteral("/fuzz-XXXXXX"));
    return folder.filePath(QString::fromLatin1(name)).toStdString();
}

inline void writeFile(const std::string& name, std::string_view bytes)
{
    std::FILE* const file = std::fopen(name.c_str(), "w");
    require(file && (bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size()),
            "the scratch file is written");
    std::fclose(file);
}

inline std::string readFile(const std::string& name)
{
    std::string bytes;
    if (std::FILE* const file = std::fopen(name.c_str(), "r")) {
        char block[4096];
        for (std::size_t n; (n = std::fread(block, 1, sizeof block, file)) > 0;)
            bytes.append(block, n);
        std::fclose(file);
    }
    return bytes;
}

}  // namespace fuzz
