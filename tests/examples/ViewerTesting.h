/// What the tests of the board viewer share: tiny boards, and files that go away.
#pragma once

#include "BoardReader.h"
#include "SExpr.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace viewer {

/// A board of four copper layers with these items.
inline std::string BoardText(const std::string& items)
{
    return "(kicad_pcb (version 20211014) (generator test)\n"
           "(layers (0 \"F.Cu\" signal) (1 \"In1.Cu\" power \"GND_layer\") (2 \"In2.Cu\" signal) (31 \"B.Cu\" signal)"
           " (36 \"B.SilkS\" user) (37 \"F.SilkS\" user) (38 \"B.Mask\" user) (39 \"F.Mask\" user) (44 \"Edge.Cuts\" "
           "user))\n" +
           items + ")\n";
}

inline Board ReadItems(const std::string& items)
{
    return ReadBoard(BoardText(items), "test.kicad_pcb");
}

/// Names of the layers in a set, in the table's order: "F.Cu B.Cu".
inline std::string NamesOf(const Board& board, LayerSet set)
{
    std::string names;
    for (int i = 0; i < board.layers.Count(); ++i) {
        if ((set >> i & 1) != 0)
            names += (names.empty() ? "" : " ") + board.layers.Name(i);
    }
    return names;
}

/// Positions in files have six decimals, that is nanometres; the tests allow a tenth of one for the trigonometry.
inline constexpr double kTolerance = 1e-7;

inline void ExpectPoint(KPointD point, double x, double y, const char* what)
{
    EXPECT_NEAR(point.x, x, kTolerance) << what;
    EXPECT_NEAR(point.y, y, kTolerance) << what;
}

/// A folder of its own for a test's files.
class TestFolder
{
public:
    TestFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "kolm-viewer-XXXXXX").string();
        path = mkdtemp(pattern.data());
    }
    ~TestFolder() { std::filesystem::remove_all(path); }
    std::string File(const std::string& name) const { return (path / name).string(); }

    std::filesystem::path path;
};

inline std::string ReadBytes(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteBytes(const std::string& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

} // namespace viewer
