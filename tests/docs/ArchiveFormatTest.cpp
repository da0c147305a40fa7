/// The archive that docs/archive-format.md spells out, against what the library writes and reads.
#include "entities/CKGeomArc.h"
#include "entities/CKGeomContainer.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPoint.h"
#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomText.h"
#include "support/ArchiveBytes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <string>

using namespace archive_bytes;

namespace {

/// The bytes of the document's dump. Its offsets are checked on the way.
Bytes DocumentedBytes()
{
    std::ifstream document(KOLM_SOURCE_DIR "/docs/archive-format.md");
    const std::regex dumpLine("([0-9a-f]{4})  ((?:[0-9a-f]{2} )*[0-9a-f]{2})(?: .*)?");
    Bytes bytes;
    bool inside = false;
    for (std::string line; std::getline(document, line);) {
        if (line.rfind("```", 0) == 0) {
            inside = line == "```hex";
            continue;
        }
        if (!inside)
            continue;
        std::smatch parts;
        if (!std::regex_match(line, parts, dumpLine)) {
            ADD_FAILURE() << "not a line of a dump: " << line;
            continue;
        }
        EXPECT_EQ(std::stoul(parts[1], nullptr, 16), bytes.size()) << line;
        const std::string digits = parts[2];
        for (size_t i = 0; i < digits.size(); i += 3)
            bytes.push_back(static_cast<unsigned char>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

/// The shapes that the document tells.
void AddDocumentedShapes(CKGeomContainer& shapes)
{
    auto* line = new CKGeomLine(0, 0, 40, 25, 1.5);
    line->SetMinMax(0, 0, 40, 25);
    shapes.Add(line);
    auto* arc = new CKGeomArc(50, 25, 40, 35, 40, 25, 1.5);
    arc->setDirection(-1);
    shapes.Add(arc);
    auto* text = new CKGeomText("R12", 20, 30, 90);
    text->SetOffsetXY(1, -2);
    shapes.Add(text);
    auto* polygon = new CKGeomPolygon;
    polygon->getOutline()->Add(new CKGeomPoint(0.1, 1e300));
    shapes.Add(polygon);
}

TEST(ArchiveFormat, TheLibraryWritesTheDocumentedBytes)
{
    CKGeomContainer shapes;
    AddDocumentedShapes(shapes);
    EXPECT_EQ(Stored(shapes), DocumentedBytes());
}

TEST(ArchiveFormat, TheLibraryReadsTheDocumentedBytes)
{
    const Bytes bytes = DocumentedBytes();
    CKGeomContainer expected, loaded;
    AddDocumentedShapes(expected);
    const Outcome outcome = Load(loaded, bytes);
    EXPECT_EQ(outcome.cause, CArchiveException::none);
    EXPECT_EQ(outcome.consumed, bytes.size());
    ASSERT_EQ(loaded.GetCount(), 4);
    // Containers compare offset and corners only, so each shape is asked as what it is.
    EXPECT_TRUE(*static_cast<CKGeomLine*>(loaded.GetAt(0)) == *static_cast<CKGeomLine*>(expected.GetAt(0)));
    EXPECT_TRUE(*static_cast<CKGeomArc*>(loaded.GetAt(1)) == *static_cast<CKGeomArc*>(expected.GetAt(1)));
    EXPECT_TRUE(*static_cast<CKGeomText*>(loaded.GetAt(2)) == *static_cast<CKGeomText*>(expected.GetAt(2)));
    auto* polygon = static_cast<CKGeomPolygon*>(loaded.GetAt(3));
    ASSERT_EQ(polygon->getOutline()->GetCount(), 1);
    EXPECT_EQ(static_cast<CKGeomPoint*>(polygon->getOutline()->GetAt(0))->GetX(), 0.1);
    EXPECT_EQ(static_cast<CKGeomPoint*>(polygon->getOutline()->GetAt(0))->GetY(), 1e300);
    EXPECT_EQ(polygon->getHole()->GetCount(), 0);
}

} // namespace
