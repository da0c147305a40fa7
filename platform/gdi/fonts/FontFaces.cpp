/// Lookup of faces through the system's font configuration.
#include "gdi/fonts/FontFaces.h"

#include <fontconfig/fontconfig.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace gdi {
namespace {

struct PatternDeleter
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDeleter>;

using FaceFile = std::pair<std::string, int>; ///< path and index inside

/// Never closed: faces stay open as long as the process lives.
FT_Library Library()
{
    static const FT_Library library = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) == 0 ? made : nullptr;
    }();
    return library;
}

/// Our own copy of the system's configuration, so that ending it at exit is nobody else's business. Text of objects
/// that outlive it finds no new faces.
class Configuration
{
public:
    static FcConfig* Get()
    {
        static Configuration configuration;
        return configuration.m_config;
    }

private:
    Configuration() : m_config(FcInitLoadConfigAndFonts()) {}
    ~Configuration()
    {
        if (m_config != nullptr) {
            FcConfigDestroy(m_config);
        }
        m_config = nullptr;
    }

    FcConfig* m_config;
};

int SystemWeight(LONG weight)
{
    if (weight == FW_DONTCARE) {
        return FC_WEIGHT_REGULAR;
    }
    return FcWeightFromOpenType(weight < 1 ? 1 : weight > 1000 ? 1000 : weight);
}

/// The best file for a record; an empty path when there is none.
FaceFile MatchFile(const LOGFONTA& record)
{
    Pattern wanted(FcPatternCreate());
    if (!wanted) {
        return {};
    }
    const char* const family = record.lfFaceName[0] != 0 ? record.lfFaceName : "sans-serif";
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, SystemWeight(record.lfWeight));
    FcPatternAddInteger(wanted.get(), FC_SLANT, record.lfItalic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    // Both steps come before any match: the rules of the system replace families, the defaults fill in the rest.
    FcConfigSubstitute(Configuration::Get(), wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());

    FcResult result = FcResultNoMatch;
    const Pattern best(FcFontMatch(Configuration::Get(), wanted.get(), &result));
    FcChar8* path = nullptr;
    int index = 0;
    if (!best || FcPatternGetString(best.get(), FC_FILE, 0, &path) != FcResultMatch) {
        return {};
    }
    FcPatternGetInteger(best.get(), FC_INDEX, 0, &index);
    return {reinterpret_cast<const char*>(path), index};
}

/// Bitmap faces are refused: text has to scale and turn.
FT_Face OpenFace(const FaceFile& file)
{
    FT_Face face = nullptr;
    if (file.first.empty() || FT_New_Face(Library(), file.first.c_str(), file.second, &face) != 0) {
        return nullptr;
    }
    if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0) {
        FT_Done_Face(face);
        return nullptr;
    }
    return face;
}

} // namespace

FT_Face FindFace(const LOGFONTA& record)
{
    static auto* const faces = new std::map<FaceFile, FT_Face>;
    if (Library() == nullptr || Configuration::Get() == nullptr) {
        return nullptr;
    }
    const FaceFile file = MatchFile(record);
    const auto known = faces->find(file);
    if (known != faces->end()) {
        return known->second;
    }
    const FT_Face face = OpenFace(file);
    // A file that cannot be opened is asked for again: it may be readable the next time.
    if (face != nullptr) {
        (*faces)[file] = face;
    }
    return face;
}

} // namespace gdi
