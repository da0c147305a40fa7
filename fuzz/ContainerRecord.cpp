/// Container and polygon records: what comes of any bytes is foretold by a second reader, and what was loaded stores,
/// loads, copies and compares as itself.
#include "ArchiveModel.h"
#include "entities/CKGeomPolygon.h"
#include "Fuzz.h"
#include "support/ArchiveBytes.h"

#include <memory>

using namespace archive_bytes;
using fuzz::Require;

namespace {

void CheckOutcome(const Outcome& outcome, const fuzz::Expected& expected)
{
    Require(outcome.cause == expected.cause, "the load ends as the format says");
    if (expected.cause == CArchiveException::none)
        Require(outcome.consumed == expected.consumed, "the load reads to the end of the record");
}

/// Also of what a load that failed has left behind.
template <class Shape>
void CheckCopies(Shape& shape, bool hasNaN)
{
    const Bytes stored = Stored(shape);
    Shape again;
    const Outcome outcome = Load(again, stored);
    Require(outcome.cause == CArchiveException::none && outcome.consumed == stored.size(), "what was stored loads");
    Require(Stored(again) == stored, "what was loaded stores as the same bytes");

    const std::unique_ptr<CKGeom> copy(shape.clone());
    Require(Stored(*copy) == stored, "a copy stores as the same bytes");
    const int equal = *static_cast<Shape*>(copy.get()) == shape;
    Require(equal == 1 || hasNaN, "a copy is equal");

    Shape assigned;
    assigned = shape;
    Require(Stored(assigned) == stored, "an assigned copy stores as the same bytes");
    shape = assigned;
    Require(Stored(shape) == stored, "assigning back changes nothing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const bool polygon = data[0] & 1;
    const Bytes bytes(data + 1, data + size);
    const fuzz::Expected expected = fuzz::RecordModel(bytes.data(), bytes.size()).Read(polygon);
    if (polygon) {
        CKGeomPolygon shape;
        CheckOutcome(Load(shape, bytes), expected);
        CheckCopies(shape, expected.hasNaN);
    } else {
        CKGeomContainer shape;
        CheckOutcome(Load(shape, bytes), expected);
        Require(shape.GetCount() == expected.count, "as many shapes as were read whole");
        CheckCopies(shape, expected.hasNaN);
    }
    return 0;
}
