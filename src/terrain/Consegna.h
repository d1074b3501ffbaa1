// The files the program and the triangulator exchange: the points (`provviso.tom`), the
// breaklines (`provviso.dsq`) and the facets that come back (`provviso.EQU`). Both sides
// use these routines, so that what one writes is what the other reads.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

inline constexpr const char* kFileTom = "provviso.tom";
inline constexpr const char* kFileDsq = "provviso.dsq";
inline constexpr const char* kFileEquMesh = "provviso.EQU";

struct DatiMesh {
  std::vector<double> X, Y, Z;
  // Each chain of breaklines as rows of `provviso.tom`, counted from 0.
  std::vector<std::vector<int32_t>> Catene;
};

// One row of `provviso.tom` after `tom`: the three values rounded to 3 decimals in the plain
// write form.
void AggiungiRigaTom(std::string& tom, double x, double y, double z);

// Reads both files. An empty text is returned when they are sound; otherwise the message
// says the first fault met (a row that is not three numbers, a height that is not a
// number, a chain whose count or point numbers do not stand), and `d` is incomplete.
std::string LeggiConsegna(std::string_view tom, std::string_view dsq, DatiMesh& d);

// The facets of `triangoli` (rows of `d`) as `.EQU` records laid end to end: live `Ident`
// and the three vertices set, every other field zero or blank.
std::string CodificaFaldeMesh(const DatiMesh& d, const std::vector<std::array<int32_t, 3>>& triangoli);
// The same records handed to `scrivi` a block at a time, for a file of millions of facets.
void CodificaFaldeMesh(const DatiMesh& d, const std::vector<std::array<int32_t, 3>>& triangoli,
                       const std::function<void(std::string_view)>& scrivi);

}  // namespace varena
