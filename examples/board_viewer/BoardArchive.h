/// The viewer's own file of a board: a small header per layer, then the layer's container of shapes.
///
/// | part | encoding |
/// |---|---|
/// | mark | the eight bytes of kArchiveMark |
/// | before each layer | int32 1; int32 0 ends the file |
/// | layer's name | archived string |
/// | layer's colour | uint32, red in the low byte |
/// | layer's shapes | one container record |
///
/// There is no count of layers to be trusted. Layers stand in drawing order, the lowest first.
#pragma once

#include "BoardPicture.h"

#include <string>
#include <string_view>

namespace viewer {

inline constexpr std::string_view kArchiveMark = "KOLMBRD1";

/// Throws std::runtime_error where the file cannot be written; an existing file then stays as it was.
void StoreArchive(const BoardPicture& picture, const std::string& path);

/// The picture in the bytes of an archive that begin with the mark. `file` names it in messages. Throws
/// std::runtime_error for an archive that is cut off or damaged.
BoardPicture LoadArchive(std::string_view bytes, const std::string& file);

} // namespace viewer
