/// A drawing of a million lines for the archive rows: as shapes, as bare records, as the bytes of its archive.
#pragma once

#include "kolm.h"

#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace bench {

constexpr int kLines = 1000000;
constexpr size_t kElementBytes = 104; // type code and record of a line
constexpr size_t kRecordBytes = 8 + size_t(kLines) * kElementBytes;

/// What a loaded line has to hold, and no more: the fields of its record, versions and type code left out.
struct BareLine
{
    double offsetX, offsetY, minMax[4], startX, startY, endX, endY, thickness;
};

using BareLines = std::vector<std::unique_ptr<BareLine>>;

/// Calls `field` with each field of a line's record in its order. The numbers between them are type and versions.
template <typename Line, typename Field>
void EachField(Line& line, Field&& field)
{
    int32_t code = 2, version = 1;
    field(code), field(version), field(line.offsetX), field(line.offsetY), field(version);
    for (auto& value : line.minMax)
        field(value);
    field(version), field(line.startX), field(line.startY), field(line.endX), field(line.endY), field(line.thickness);
}

/// The lines of a drawing, as shapes and as bare records, and their bytes in an archive.
struct Drawing
{
    Drawing()
    {
        std::mt19937 random(7);
        const auto coordinate = [&random] { return int(random() % 2000000) * 1e-4; };
        for (int i = 0; i < kLines; ++i) {
            const double x1 = coordinate(), y1 = coordinate(), x2 = coordinate(), y2 = coordinate();
            shapes.Add(new CKGeomLine(x1, y1, x2, y2, 0.25));
            lines.emplace_back(new BareLine{0, 0, {}, x1, y1, x2, y2, 0.25});
            sum += x1 + y1 + x2 + y2 + 0.25;
        }
    }
    CKGeomContainer shapes;
    BareLines lines;
    double sum = 0;
};

inline Drawing& TheDrawing()
{
    static Drawing drawing;
    return drawing;
}

template <typename Value>
inline void Put(BYTE*& at, Value value)
{
    std::memcpy(at, &value, sizeof value);
    at += sizeof value;
}

template <typename Value>
void Get(const BYTE*& at, Value& value)
{
    std::memcpy(&value, at, sizeof value);
    at += sizeof value;
}

/// The bytes of the record, written by hand.
inline const std::vector<BYTE>& TheBytes()
{
    static const std::vector<BYTE> bytes = [] {
        std::vector<BYTE> made(kRecordBytes);
        BYTE* at = made.data();
        Put(at, int32_t(1)), Put(at, int32_t(kLines));
        for (const auto& line : TheDrawing().lines)
            EachField(*line, [&at](auto value) { Put(at, value); });
        return made;
    }();
    return bytes;
}

/// A file that goes with the program.
inline const std::string& ThePath()
{
    static const struct Path
    {
        Path() : text((std::filesystem::temp_directory_path() / ("kolm_bench_" + std::to_string(::getpid()))).string())
        {}
        ~Path() { std::filesystem::remove(text); }
        std::string text;
    } path;
    return path.text;
}

inline std::vector<BYTE> FileBytes()
{
    std::ifstream file(ThePath(), std::ios::binary);
    return std::vector<BYTE>(std::istreambuf_iterator<char>(file), {});
}

} // namespace bench
