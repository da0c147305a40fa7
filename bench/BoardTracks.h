/// The tracks of a real board, for the rows that draw one.
#pragma once

#include "Scene.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace bench {

/// Every straight track of a board file, one a line of text as its writer leaves them; empty when there is no such
/// file.
inline std::vector<Track> ReadTracks(const std::string& path)
{
    std::vector<Track> tracks;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        Track track;
        if (std::sscanf(line.c_str(), " (segment (start %lf %lf) (end %lf %lf) (width %lf)", &track.x1, &track.y1,
                        &track.x2, &track.y2, &track.width) == 5)
            tracks.push_back(track);
    }
    return tracks;
}

/// All tracks in nine tenths of the frame, or that view zoomed about its centre.
inline View Fit(const std::vector<Track>& tracks, double zoom)
{
    double left = 1e9, right = -1e9, top = 1e9, bottom = -1e9;
    for (const Track& t : tracks) {
        left = std::min({left, t.x1, t.x2});
        right = std::max({right, t.x1, t.x2});
        top = std::min({top, t.y1, t.y2});
        bottom = std::max({bottom, t.y1, t.y2});
    }
    const double scale = 0.9 * std::min(kFrameWidth / (right - left), kFrameHeight / (bottom - top));
    return {scale * zoom, (left + right) / 2, (top + bottom) / 2};
}

} // namespace bench
