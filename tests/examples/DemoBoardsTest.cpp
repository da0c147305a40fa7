#include "BoardArchive.h"
#include "BoardFile.h"
#include "BoardInfo.h"
#include "PictureTesting.h"

#include <algorithm>

namespace viewer {

namespace {

/// The board that lies beside the viewer.
const std::string kOwnBoard = KOLM_VIEWER_BOARD;

/// The boards of the package kicad-demos, where it is installed; KOLM_DEMO_BOARDS names another place.
std::vector<std::string> InstalledBoards()
{
    const char* place = std::getenv("KOLM_DEMO_BOARDS");
    std::vector<std::string> boards;
    std::error_code error;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(place ? place : "/usr/share/kicad/demos", error)) {
        if (entry.path().extension() == ".kicad_pcb")
            boards.push_back(entry.path().string());
    }
    std::sort(boards.begin(), boards.end());
    return boards;
}

/// How often a list with this head stands in the text, quoted texts aside. Second way of counting, by characters.
size_t CountLists(const std::string& text, const std::string& head)
{
    size_t count = 0;
    bool quoted = false;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"' && (i == 0 || text[i - 1] != '\\'))
            quoted = !quoted;
        const bool begins = !quoted && text[i] == '(' && text.compare(i + 1, head.size(), head) == 0;
        const char after = begins && i + 1 + head.size() < text.size() ? text[i + 1 + head.size()] : 'x';
        count += begins && (after == ' ' || after == '\n' || after == ')');
    }
    return count;
}

/// Track ends that lie in the copper of a pad of another net on the same layer.
std::vector<std::string> ShortedEnds(const Board& board)
{
    std::vector<std::string> shorted;
    for (const Track& track : board.tracks) {
        for (const KPointD& end : {track.figure.start, track.figure.end}) {
            for (const Pad& pad : board.pads) {
                if (pad.net == track.net || (pad.layers >> track.layer & 1) == 0)
                    continue;
                // Pads reach no further from their centre than this.
                if (std::hypot(pad.centre.x - end.x, pad.centre.y - end.y) > 30)
                    continue;
                for (const Figure& figure : pad.copper) {
                    if (DistanceToFigure(figure, end) == 0)
                        shorted.push_back("pad " + pad.number + " at " + std::to_string(end.x) + ", " +
                                          std::to_string(-end.y));
                }
            }
        }
    }
    return shorted;
}

void ExpectSound(const std::string& file)
{
    SCOPED_TRACE(file);
    const std::string text = ReadBytes(file);
    const Board board = ReadBoard(text, file);
    EXPECT_EQ(board.tracks.size(),
              CountLists(text, "segment") + size_t(std::count_if(board.tracks.begin(), board.tracks.end(),
                                                                 [](const Track& t) { return t.isArc; })));
    EXPECT_EQ(board.vias.size(), CountLists(text, "via"));
    EXPECT_EQ(board.pads.size(), CountLists(text, "pad"));
    EXPECT_EQ(References(board).size(), CountLists(text, "footprint") + CountLists(text, "module"));
    EXPECT_EQ(board.filledPolygons.size(), CountLists(text, "filled_polygon"));
    EXPECT_GT(board.graphics.size(), 0u);
    EXPECT_EQ(ShortedEnds(board), std::vector<std::string>());
}

} // namespace

TEST(DemoBoards, OwnBoardIsSound)
{
    ExpectSound(kOwnBoard);
}

TEST(DemoBoards, InstalledBoardsAreSound)
{
    const std::vector<std::string> boards = InstalledBoards();
    if (boards.empty())
        GTEST_SKIP() << "no boards found: install the package kicad-demos or set KOLM_DEMO_BOARDS";
    for (const std::string& board : boards)
        ExpectSound(board);
}

TEST(DemoBoards, ArchivesOfInstalledBoardsShowTheSamePicture)
{
    std::vector<std::string> boards = InstalledBoards();
    boards.push_back(kOwnBoard);
    const TestFolder folder;
    for (const std::string& board : boards) {
        // The largest take too long under sanitizers.
        if (std::filesystem::file_size(board) > 1'000'000)
            continue;
        const BoardFile file = OpenBoardFile(board);
        StoreArchive(file.picture, folder.File("b.kolm"));
        const BoardFile loaded = OpenBoardFile(folder.File("b.kolm"));
        EXPECT_FALSE(loaded.board);

        for (const bool mirror : {false, true}) {
            std::string pictures[2];
            for (int i : {0, 1}) {
                BoardPainter painter(i == 0 ? file.picture : loaded.picture);
                if (mirror)
                    painter.ShowFromBack();
                ExportPicture(painter, {400, 300}, {}, folder.File("p.bmp"));
                pictures[i] = ReadBytes(folder.File("p.bmp"));
            }
            EXPECT_TRUE(pictures[0] == pictures[1]) << board;
        }
    }
}

TEST(DemoBoards, EveryTruncationIsAnError)
{
    const std::string whole = ReadBytes(kOwnBoard);
    ASSERT_GT(whole.size(), 10000u);
    const size_t end = whole.rfind(')');
    // A stride without a common factor with the line lengths cuts at all kinds of places.
    for (size_t length = 0; length <= end; length += length < 3000 ? 1 : 997)
        EXPECT_THROW(ReadBoard(std::string_view(whole).substr(0, length), "b"), ReadError) << length;
    EXPECT_NO_THROW(ReadBoard(std::string_view(whole).substr(0, end + 1), "b"));
}

TEST(DemoBoards, DamagedBoardsAreErrorsOrBoards)
{
    const std::string whole = ReadBytes(kOwnBoard);
    for (size_t at = 0; at < whole.size(); at += 4999) {
        for (const char* bytes : {"(", ")", "\"", "nan", "1e300", "\\", "\xFF"}) {
            std::string damaged = whole;
            damaged.replace(at, std::strlen(bytes), bytes);
            try {
                MakePicture(ReadBoard(damaged, "b"));
            } catch (const ReadError&) {
            }
        }
    }
}

TEST(BoardInfo, CountsByLayer)
{
    const Board board =
        ReadItems("(net 0 \"\") (net 1 \"a\\\"b\")\n"
                  "(segment (start 2 5) (end 8 5) (width 2) (layer \"F.Cu\") (net 1))"
                  "(arc (start 9 5) (mid 5 1) (end 1 5) (width 1) (layer \"F.Cu\") (net 1))"
                  "(via (at 5 5) (size 4) (drill 2) (layers \"F.Cu\" \"B.Cu\") (net 1))"
                  "(footprint x (layer F.Cu) (at 5 5) (fp_text reference R1 (at 0 0) (layer F.SilkS))"
                  " (pad 1 smd rect (at 0 0) (size 1 1) (layers F.Cu F.Mask)))"
                  "(gr_rect (start 0 0) (end 10 20) (layer \"Edge.Cuts\") (width 0.1) (fill none))"
                  "(zone (net 1) (layer F.Cu) (filled_polygon (pts (xy 0 0) (xy 1 0) (xy 1 1) (xy 0 1))))");
    std::string json = BoardInfoJson(board, MakePicture(board));
    json.erase(std::remove_if(json.begin(), json.end(), [](char c) { return c == ' ' || c == '\n'; }), json.end());
    EXPECT_NE(
        json.find(
            "{\"name\":\"F.Cu\",\"colour\":\"#CC3830\",\"segments\":1,\"arcs\":1,\"vias\":1,\"pads\":{\"rect\":1},"
            "\"graphics\":{},\"texts\":0,\"filledPolygons\":[4]}"),
        std::string::npos)
        << json;
    EXPECT_NE(json.find("\"name\":\"Edge.Cuts\""), std::string::npos);
    EXPECT_NE(json.find("\"graphics\":{\"rect\":1}"), std::string::npos) << json;
    EXPECT_NE(json.find("\"references\":[\"R1\"],\"nets\":[\"\",\"a\\\"b\"],\"outline\":{\"left\":0,\"top\":0,"
                        "\"right\":10,\"bottom\":20}}"),
              std::string::npos)
        << json;
}

} // namespace viewer
