#include "PictureFile.h"

#include "PictureSize.h"
#include "PngFile.h"

#include "painter/CKPainter.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace viewer {

namespace {

/// The painter reports failures of writing in message boxes; here they are kept instead. A CWinApp is the application
/// while it lives.
class MessageKeeper : public CWinApp
{
public:
    int DoMessageBox(LPCSTR text, UINT, UINT) override
    {
        messages += messages.empty() ? "" : "; ";
        messages += text;
        return IDOK;
    }

    std::string messages;
};

/// ".bmp" for "A.BMP"; empty without an ending.
std::string LowerCaseEnding(const std::string& path)
{
    std::string ending = std::filesystem::path(path).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](unsigned char c) { return char(std::tolower(c)); });
    return ending;
}

bool IsJpegPath(const std::string& path)
{
    const std::string ending = LowerCaseEnding(path);
    return ending == ".jpg" || ending == ".jpeg";
}

bool IsPngPath(const std::string& path)
{
    return LowerCaseEnding(path) == ".png";
}

bool IsCompleteJpeg(const std::string& path)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    char end[2] = {};
    return file.seekg(-2, std::ios::end) && file.read(end, 2) && end[0] == '\xFF' && end[1] == '\xD9';
}

/// The header tells the length of the whole file.
bool IsCompleteBitmap(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    unsigned char head[6] = {};
    if (!file.read(reinterpret_cast<char*>(head), sizeof head) || head[0] != 'B' || head[1] != 'M')
        return false;
    const uint32_t length = head[2] | head[3] << 8 | head[4] << 16 | uint32_t(head[5]) << 24;
    return file.seekg(0, std::ios::end) && file.tellg() == std::streamoff(length);
}

/// Changes bytes of a file in place. What fails is seen when the stream is asked.
void Overwrite(const std::string& path, std::streamoff at, const std::string& bytes)
{
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    if (!file.seekp(at) || !file.write(bytes.data(), std::streamsize(bytes.size())) || !file.flush())
        throw std::runtime_error("its resolution cannot be recorded");
}

/// Horizontal and vertical pixels per metre are two 32-bit numbers of the bitmap's header, low byte first.
void RecordInBitmap(const std::string& path, double pixelsPerMm)
{
    constexpr std::streamoff kResolution = 38;
    const auto perMetre = uint32_t(std::clamp(std::round(pixelsPerMm * 1000), 0.0, double(INT32_MAX)));
    std::string number;
    for (int shift = 0; shift < 32; shift += 8)
        number += char(perMetre >> shift & 0xFF);
    Overwrite(path, kResolution, number + number);
}

/// The JFIF header has a unit, 1 for inches and 2 for centimetres, and two 16-bit densities, high byte first. The unit
/// is chosen in which less is lost by rounding; a scale that fits in neither stays unsaid.
void RecordInJpeg(const std::string& path, double pixelsPerMm)
{
    constexpr std::streamoff kUnit = 13;
    const double perInch = pixelsPerMm * kMillimetresPerInch, perCentimetre = pixelsPerMm * 10;
    const auto loss = [](double density) { return std::fabs(std::round(density) / density - 1); };
    const bool inCentimetres = loss(perCentimetre) < loss(perInch) || std::round(perInch) > UINT16_MAX;
    const double density = std::round(inCentimetres ? perCentimetre : perInch);
    if (!(density >= 1) || density > UINT16_MAX)
        return;
    const std::string number = {char(unsigned(density) >> 8), char(unsigned(density) & 0xFF)};
    Overwrite(path, kUnit, (inCentimetres ? '\2' : '\1') + number + number);
}

} // namespace

bool IsPicturePath(const std::string& path)
{
    return IsJpegPath(path) || IsPngPath(path) || LowerCaseEnding(path) == ".bmp";
}

PictureFile::PictureFile(const std::string& target) : path(target), file(target) {}

void PictureFile::Write(HBITMAP bitmap, double pixelsPerMm)
{
    try {
        if (IsPngPath(path))
            WritePng(file.Name(), bitmap, pixelsPerMm);
        else
            WriteByPainter(bitmap, IsJpegPath(path));
        if (IsJpegPath(path))
            RecordInJpeg(file.Name(), pixelsPerMm);
        else if (!IsPngPath(path))
            RecordInBitmap(file.Name(), pixelsPerMm);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(path + ": cannot be written: " + error.what());
    }
    file.Commit();
}

void PictureFile::WriteByPainter(HBITMAP bitmap, bool asJpeg)
{
    MessageKeeper keeper;
    CKPainter painter;
    if (asJpeg)
        painter.SaveToJPG(file.Name().c_str(), bitmap);
    else
        painter.SaveToBMP(file.Name().c_str(), bitmap);
    if (!keeper.messages.empty())
        throw std::runtime_error(keeper.messages);
    // The library does not say how a conversion to JPEG went, nor that there was no memory for the rows; a JPEG file
    // that was cut off lacks the end mark.
    if (!(asJpeg ? IsCompleteJpeg(file.Name()) : IsCompleteBitmap(file.Name())))
        throw std::runtime_error("the picture file is not complete");
}

} // namespace viewer
