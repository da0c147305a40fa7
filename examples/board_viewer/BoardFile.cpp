#include "BoardFile.h"

#include "BoardArchive.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace viewer {

namespace {

constexpr double kReadingShare = 0.3; // of opening a file; the rest is understanding it
constexpr int kPatience = 100;        // milliseconds without bytes until the hook is asked again

/// An open file. It never blocks, so that the wait for a pipe's next bytes can be ended.
class InputFile
{
public:
    explicit InputFile(const std::string& filePath)
        : path(filePath), descriptor(open(filePath.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC))
    {
        if (descriptor < 0)
            Fail();
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile() { close(descriptor); }

    /// 0 for what is no ordinary file.
    double Size() const
    {
        struct stat status;
        return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) ? double(status.st_size) : 0;
    }

    /// Appends what the file gives next, up to `most` bytes. False at its end. Nothing may come for now.
    bool ReadInto(std::string& bytes, size_t most) const
    {
        pollfd wait = {descriptor, POLLIN, 0};
        if (poll(&wait, 1, kPatience) == 0)
            return true;
        // The unused rest is cut off again.
        const size_t before = bytes.size();
        bytes.resize(before + most);
        const ssize_t got = read(descriptor, &bytes[before], most);
        bytes.resize(before + size_t(std::max<ssize_t>(got, 0)));
        if (got < 0 && errno != EAGAIN && errno != EINTR)
            Fail();
        return got != 0;
    }

private:
    [[noreturn]] void Fail() const { throw std::runtime_error(path + ": cannot be read: " + std::strerror(errno)); }

    const std::string& path;
    const int descriptor;
};

/// Read to the end in growing pieces, so that pipes work too and no reported size is trusted.
std::string ReadWholeFile(const std::string& path, const ProgressHook& progress)
{
    const InputFile file(path);
    const double size = file.Size();
    std::string bytes;
    while (file.ReadInto(bytes, std::max(size_t(1) << 20, bytes.size()))) {
        if (progress)
            progress(size > 0 ? std::min(double(bytes.size()) / size, 1.0) * kReadingShare : 0);
    }
    return bytes;
}

} // namespace

BoardSource ReadBoardSource(const std::string& path, const ProgressHook& progress)
{
    BoardSource source;
    source.path = path;
    std::string bytes = ReadWholeFile(path, progress);
    if (std::string_view(bytes).substr(0, kArchiveMark.size()) == kArchiveMark) {
        source.archive = std::move(bytes);
        return source;
    }
    const auto scanned = [&](double done) { progress(kReadingShare + done * (1 - kReadingShare)); };
    source.board = ReadBoard(bytes, path, progress ? ProgressHook(scanned) : ProgressHook());
    return source;
}

BoardFile MakeBoardFile(BoardSource source)
{
    BoardFile file;
    file.picture = source.board ? MakePicture(*source.board) : LoadArchive(source.archive, source.path);
    file.board = std::move(source.board);
    return file;
}

BoardFile OpenBoardFile(const std::string& path, const ProgressHook& progress)
{
    return MakeBoardFile(ReadBoardSource(path, progress));
}

} // namespace viewer
