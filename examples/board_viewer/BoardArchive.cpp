#include "BoardArchive.h"

#include "PendingFile.h"

#include <algorithm>
#include <stdexcept>

namespace viewer {

namespace {

constexpr int32_t kLayerFollows = 1;
constexpr int32_t kEnd = 0;

/// The platform throws its exceptions by pointer, and the catcher disposes of them.
[[noreturn]] void Rethrow(CException* exception, const std::string& prefix)
{
    char text[256] = "";
    exception->GetErrorMessage(text, sizeof text);
    exception->Delete();
    throw std::runtime_error(prefix + text);
}

/// Closes both explicitly: a destructor could not tell of the write that fails last.
void WriteArchive(const BoardPicture& picture, const std::string& path)
{
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    CArchive archive(&file, CArchive::store);
    archive.Write(kArchiveMark.data(), UINT(kArchiveMark.size()));
    for (const auto& layer : picture.layers) {
        archive << kLayerFollows << CString(layer->name.data(), int(layer->name.size())) << layer->colour;
        layer->shapes.Serialize(archive);
    }
    archive << kEnd;
    archive.Close();
    file.Close();
}

/// The container brings its own count and checks it by reading on; nothing is reserved on its word.
std::unique_ptr<PictureLayer> ReadLayer(CArchive& archive)
{
    auto layer = std::make_unique<PictureLayer>();
    CString name;
    archive >> name >> layer->colour;
    layer->name.assign(name.GetString(), size_t(name.GetLength())); // a damaged name can hold zero bytes
    layer->colour &= 0xFFFFFF; // no palette indices and the like, which the high byte could ask for
    layer->shapes.Serialize(archive);
    SetAreas(*layer);
    return layer;
}

} // namespace

void StoreArchive(const BoardPicture& picture, const std::string& path)
{
    PendingFile file(path);
    try {
        WriteArchive(picture, file.Name());
    } catch (CException* exception) {
        Rethrow(exception, path + ": cannot be written: ");
    }
    file.Commit();
}

BoardPicture LoadArchive(std::string_view bytes, const std::string& file)
{
    BoardPicture picture;
    // The file object wants bytes that it may write to; it never does while loading.
    std::string body(bytes.substr(std::min(kArchiveMark.size(), bytes.size())));
    try {
        CMemFile memory;
        memory.Attach(reinterpret_cast<BYTE*>(body.data()), UINT(body.size()));
        CArchive archive(&memory, CArchive::load);
        int32_t next = kEnd;
        for (archive >> next; next == kLayerFollows; archive >> next)
            picture.layers.push_back(ReadLayer(archive));
        if (next != kEnd)
            throw std::runtime_error(file + ": a damaged board archive");
    } catch (CException* exception) {
        Rethrow(exception, file + ": a damaged or cut off board archive: ");
    }
    return picture;
}

} // namespace viewer
