/// The record of a text, read over one that holds something already.
#include "ArchiveModel.h"
#include "entities/CKGeomText.h"
#include "Fuzz.h"
#include "support/ArchiveBytes.h"

using namespace archive_bytes;
using fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Bytes bytes(data, data + size);
    fuzz::FieldReader model(data, size);
    fuzz::ReadSimpleShape(model, 1);

    CKGeomText text("before", 1, 2, 3, 4);
    const Outcome outcome = Load(text, bytes);
    Require((outcome.cause == CArchiveException::none) == !model.Ended(), "the load ends as the format says");
    Require(text.GetFontSize() == 4, "the font size is not archived");
    // Wide characters grow at most from two bytes to three.
    Require(size_t(text.GetText().GetLength()) <= 6 + size * 3 / 2, "no text comes from nothing");
    if (!model.Ended())
        Require(outcome.consumed == model.Position(), "the load reads to the end of the record");

    const Bytes stored = Stored(text);
    CKGeomText again;
    Require(Load(again, stored).consumed == stored.size(), "what was stored loads");
    Require(again.GetText() == text.GetText() && Stored(again) == stored, "and stores as the same bytes");
    CKGeomText copy(text);
    Require(Stored(copy) == stored, "a copy stores as the same bytes");
    return 0;
}
