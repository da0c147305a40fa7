/// Length prefixes and the strings behind them, several in a row, through archives with buffers of many sizes.
#include "ArchiveModel.h"
#include "Fuzz.h"

#include <vector>

using fuzz::Require;

namespace {

/// One string of an archive, told by plain bytes.
struct Foretold
{
    bool whole;
    std::string narrow; ///< the text when its characters are single bytes
    fuzz::StringPrefix prefix;
};

Foretold Foretell(fuzz::FieldReader& in, const uint8_t* data, size_t size)
{
    Foretold foretold = {false, {}, fuzz::ReadPrefix(in)};
    const uint64_t length = foretold.prefix.length;
    const size_t begin = in.Position();
    in.Skip(length > size ? size + 1 : length * uint64_t(foretold.prefix.charSize));
    foretold.whole = !in.Ended();
    if (foretold.whole && foretold.prefix.charSize == 1)
        foretold.narrow.assign(reinterpret_cast<const char*>(data) + begin, size_t(length));
    return foretold;
}

/// False when the archive ends before the string does.
bool ReadsString(CArchive& archive, CString& text)
{
    try {
        archive >> text;
        return true;
    } catch (CArchiveException* e) {
        Require(e->m_cause == CArchiveException::endOfFile, "a string ends well or early");
        e->Delete();
        return false;
    }
}

void CheckString(const CString& text, const Foretold& foretold)
{
    const size_t length = size_t(text.GetLength());
    if (foretold.prefix.charSize == 1) {
        Require(std::string(text.GetString(), length) == foretold.narrow, "a narrow string holds its bytes");
        return;
    }
    // A unit becomes one to three bytes of UTF-8; a pair of surrogates, two units, four.
    Require(length >= foretold.prefix.length && length <= 3 * foretold.prefix.length, "a wide string has its length");
    for (size_t i = 0; i < length; ++i) {
        const int byte = static_cast<unsigned char>(text.GetAt(int(i)));
        Require(byte < 0xF5 && byte != 0xC0 && byte != 0xC1, "a wide string becomes UTF-8");
    }
}

/// Lengths of any size, written and read back.
void CheckLength(uint64_t length, bool wide)
{
    CMemFile file;
    CArchive out(&file, CArchive::store);
    AfxWriteStringLength(out, length, wide);
    out.Close();
    file.SeekToBegin();
    CArchive in(&file, CArchive::load);
    int charSize = 0;
    Require(AfxReadStringLength(in, charSize) == length, "a length reads back");
    Require(charSize == (wide ? 2 : 1), "so does the size of its characters");
    in.Close();
    Require(file.GetPosition() == file.GetLength(), "the prefix is read to its end");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::Input input(data, size);
    CheckLength(input.Take<uint64_t>() >> (input.Byte() & 63), input.Byte() & 1);
    const int bufferSize = 128 + input.Byte();
    std::string bytes = input.Rest();
    const uint8_t* const first = reinterpret_cast<const uint8_t*>(bytes.data());

    fuzz::FieldReader model(first, bytes.size());
    CMemFile file(reinterpret_cast<BYTE*>(bytes.data()), UINT(bytes.size()));
    // Without a buffer from here the archive reads the bytes in place.
    BYTE buffer[128 + 255];
    CArchive archive(&file, CArchive::load, bufferSize, bufferSize % 2 ? buffer : nullptr);
    for (bool more = true; more;) {
        const Foretold foretold = Foretell(model, first, bytes.size());
        CString text("before");
        more = ReadsString(archive, text);
        Require(more == foretold.whole, "a string is whole when all of its bytes are there");
        if (more)
            CheckString(text, foretold);
        else
            Require(text == "before", "a string that ends early changes nothing");
    }
    return 0;
}
