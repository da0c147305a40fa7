#include "entities/CKGeomPolygon.h"
#include "Raises.h"
#include "support/ArchiveBytes.h"
#include "support/CountedShape.h"

#include <gtest/gtest.h>

#include <memory>

using namespace archive_bytes;

namespace {

/// Polygons in the outlines of polygons, with a counted shape in the hole of each.
std::unique_ptr<CKGeomPolygon> Tower(int levels)
{
    auto tower = std::make_unique<CKGeomPolygon>();
    CKGeomPolygon* top = tower.get();
    for (int i = 0; i < levels; ++i) {
        top->getHole()->Add(new CountedShape(i));
        CKGeomPolygon* next = new CKGeomPolygon;
        top->getOutline()->Add(next);
        top = next;
    }
    return tower;
}

int Height(CKGeomPolygon* polygon)
{
    int levels = 0;
    while (polygon && polygon->getOutline()->GetCount() == 1) {
        polygon = dynamic_cast<CKGeomPolygon*>(polygon->getOutline()->GetAt(0));
        ++levels;
    }
    return levels;
}

/// The record of a container that holds a line and then polygons in polygons, cut off below the last.
Bytes HostileRecord(int levels)
{
    Record record;
    record.I(1).I(2).I(2).Header(0, 0, 0, 0, 0, 0).I(1).D(1).D(2).D(3).D(4).D(5);
    for (int i = 0; i < levels; ++i)
        record.I(6).I(1).I(1).I(1); // type, polygon's version, outline's version and count
    return record.bytes;
}

// A frame of a few hundred bytes a level would need more than any stack has.
constexpr int kDeep = 60000;

} // namespace

TEST(CKGeomNesting, DeepTowersAreCopiedComparedAndDestroyed)
{
    {
        const std::unique_ptr<CKGeomPolygon> tower = Tower(kDeep);
        const std::unique_ptr<CKGeom> copy(tower->clone());
        EXPECT_EQ(Height(static_cast<CKGeomPolygon*>(copy.get())), kDeep);
        EXPECT_EQ(CountedShape::alive, 2 * kDeep);
        EXPECT_EQ(*static_cast<CKGeomPolygon*>(copy.get()) == *tower, 1);
        CKGeomPolygon assigned;
        assigned = *tower;
        EXPECT_EQ(CountedShape::alive, 3 * kDeep);
    }
    EXPECT_EQ(CountedShape::alive, 0);

    CKGeomContainer chain; // and containers in containers
    CKGeomContainer* last = &chain;
    for (int i = 0; i < kDeep; ++i) {
        auto* next = new CKGeomContainer;
        last->Add(next);
        last = next;
    }
    last->Add(new CountedShape);
    const CKGeomContainer copy(chain);
    EXPECT_EQ(CountedShape::alive, 2);
}

TEST(CKGeomNesting, WhatIsStoredLoadsAndTooDeepIsRefusedBothWays)
{
    const std::unique_ptr<CKGeomPolygon> modest = Tower(100);
    const Bytes bytes = Stored(*modest);
    CKGeomPolygon plain;
    EXPECT_EQ(Load(plain, bytes).consumed, bytes.size());
    EXPECT_EQ(Height(&plain), 100);

    const std::unique_ptr<CKGeomPolygon> deep = Tower(1000);
    for (int attempt = 0; attempt < 2; ++attempt) { // the second shows that the first left no depth behind
        CMemFile file;
        CArchive archive(&file, CArchive::store);
        EXPECT_EQ(ArchiveCause([&] { deep->Serialize(archive); }), CArchiveException::badSchema);
        archive.Abort();
        EXPECT_EQ(Stored(*modest), bytes);
    }
}

/// 128 container records may lie in each other; a tower's top adds one to its levels.
TEST(CKGeomNesting, TheLimitIsTheSameBothWays)
{
    const std::unique_ptr<CKGeomPolygon> highest = Tower(127), tooHigh = Tower(128);
    CKGeomPolygon loaded;
    EXPECT_EQ(Load(loaded, Stored(*highest)).cause, CArchiveException::none);
    EXPECT_EQ(Height(&loaded), 127);
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    EXPECT_EQ(ArchiveCause([&] { tooHigh->Serialize(archive); }), CArchiveException::badSchema);
    archive.Abort();

    // Below the outermost container, and cut off there.
    CKGeomContainer container;
    EXPECT_EQ(Load(container, HostileRecord(127)).cause, CArchiveException::endOfFile);
    EXPECT_EQ(Load(container, HostileRecord(128)).cause, CArchiveException::badSchema);
}

TEST(CKGeomNesting, HostileArchivesEndInAnException)
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        CKGeomContainer container;
        EXPECT_EQ(Load(container, HostileRecord(100000)).cause, CArchiveException::badSchema);
        ASSERT_EQ(container.GetCount(), 1) << "what was loaded before stays";
        EXPECT_EQ(container.GetAt(0)->GetType(), 2);
    }
    CKGeomContainer shallow;
    EXPECT_EQ(Load(shallow, HostileRecord(20)).cause, CArchiveException::endOfFile);
    EXPECT_EQ(shallow.GetCount(), 1);
}

TEST(CKGeomNesting, WhatLoadsCanBeStored)
{
    // A polygon of version 0 has no containers in its record, but needs room for two when it is stored.
    for (const int levels : {126, 127}) {
        Record record;
        record.I(1).I(1);
        for (int i = 0; i < levels; ++i)
            record.I(6).I(1).I(1).I(1);
        record.I(6).I(0);
        for (int i = 0; i < levels; ++i)
            record.I(1).I(0);
        CKGeomContainer container;
        const bool fits = levels < 127; // and the container itself makes 128
        EXPECT_EQ(Load(container, record.bytes).cause, fits ? CArchiveException::none : CArchiveException::badSchema);
        EXPECT_EQ(container.GetCount(), fits ? 1 : 0);
        EXPECT_GT(Stored(container).size(), 7u);
    }
}
