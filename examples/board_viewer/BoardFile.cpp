#include "BoardFile.h"

#include "BoardArchive.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace viewer {

namespace {

/// Read to the end in growing pieces, so that pipes work too and no reported size is trusted.
std::string ReadWholeFile(const std::string& path)
{
    const auto fail = [&] { throw std::runtime_error(path + ": cannot be read: " + std::strerror(errno)); };
    const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                     [](FILE* f) { return f ? std::fclose(f) : 0; });
    if (!file)
        fail();

    std::string bytes;
    size_t piece = size_t(1) << 20;
    size_t got = 0;
    do {
        // What the file gives is kept and the unused rest cut off again.
        const size_t before = bytes.size();
        bytes.resize(before + piece);
        got = std::fread(&bytes[before], 1, piece, file.get());
        bytes.resize(before + got);
        piece = std::max(piece, bytes.size());
    } while (got > 0);
    if (std::ferror(file.get()))
        fail();
    return bytes;
}

} // namespace

BoardFile OpenBoardFile(const std::string& path, const ProgressHook& progress)
{
    const std::string bytes = ReadWholeFile(path);
    BoardFile file;
    if (std::string_view(bytes).substr(0, kArchiveMark.size()) == kArchiveMark) {
        file.picture = LoadArchive(bytes, path);
        return file;
    }
    file.board = ReadBoard(bytes, path, progress);
    file.picture = MakePicture(*file.board);
    return file;
}

} // namespace viewer
