/// The record of two points.
#include "ArchiveModel.h"
#include "foundation/CKTwoPointD.h"
#include "Fuzz.h"
#include "support/ArchiveBytes.h"

using namespace archive_bytes;
using fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Bytes bytes(data, data + size);
    fuzz::FieldReader model(data, size);
    fuzz::ReadTwoPoints(model);

    CKTwoPointD points(1, 2, 3, 4);
    const Outcome outcome = Load(points, bytes);
    Require((outcome.cause == CArchiveException::none) == !model.Ended(), "the load ends as the format says");
    if (!model.Ended())
        Require(outcome.consumed == model.Position(), "the load reads to the end of the record");

    // Whatever was there of the four values is in its place, bit by bit, and the others are as before.
    const double before[] = {1, 2, 3, 4};
    const double after[] = {points.GetX1(), points.GetY1(), points.GetX2(), points.GetY2()};
    int32_t version = 0;
    if (size >= 4)
        std::memcpy(&version, data, 4);
    for (size_t i = 0; i < 4; ++i) {
        const bool read = version >= 1 && size >= 4 + 8 * (i + 1);
        Require(std::memcmp(&after[i], read ? data + 4 + 8 * i : reinterpret_cast<const uint8_t*>(&before[i]), 8) == 0,
                "values that were there are read, others stay");
    }
    const Bytes stored = Stored(points);
    CKTwoPointD again;
    Require(stored.size() == 36 && Load(again, stored).consumed == 36, "what was stored loads");
    Require(Stored(again) == stored, "and stores as the same bytes");
    const bool hasNaN = std::any_of(after, after + 4, [](double value) { return std::isnan(value); });
    Require((points == again) == !hasNaN, "equal but for NaNs");
    return 0;
}
