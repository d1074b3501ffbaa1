// The constrained Delaunay triangulation of the companion, on CGAL's exact predicates.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "terrain/Consegna.h"

namespace varena::mesh {

// The triangles of the points of `d`, every chain an edge of the result, each triangle as
// three rows counted counter-clockwise. Of points at one place the first row stands for all.
// An empty text on success; otherwise what went wrong, and no triangle.
std::string Triangola(const DatiMesh& d, std::vector<std::array<int32_t, 3>>& triangoli);

}  // namespace varena::mesh
