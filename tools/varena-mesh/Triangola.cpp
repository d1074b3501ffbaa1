// The only translation unit that sees CGAL: its headers are slow to compile, and the core
// stays free of them.
#include "Triangola.h"

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>

namespace varena::mesh {

namespace {

using K = CGAL::Exact_predicates_inexact_constructions_kernel;
using Vb = CGAL::Triangulation_vertex_base_with_info_2<int32_t, K>;
using Fb = CGAL::Constrained_triangulation_face_base_2<K>;
using Tds = CGAL::Triangulation_data_structure_2<Vb, Fb>;
// Two breaklines that cross would need a vertex that no survey point gives, with a height
// nobody measured: the triangulation refuses them instead of inventing one.
using Cdt = CGAL::Constrained_Delaunay_triangulation_2<K, Tds, CGAL::No_constraint_intersection_requiring_constructions_tag>;

}  // namespace

std::string Triangola(const DatiMesh& d, std::vector<std::array<int32_t, 3>>& triangoli) {
  triangoli.clear();
  const size_t n = d.X.size();
  std::vector<std::pair<K::Point_2, int32_t>> punti(n);
  for (size_t k = 0; k < n; ++k) punti[k] = {K::Point_2(d.X[k], d.Y[k]), static_cast<int32_t>(k)};
  Cdt cdt;
  // The range insertion sorts the points along a space-filling curve first: the walk from
  // one point to the next stays short.
  cdt.insert(punti.begin(), punti.end());
  if (cdt.dimension() < 2) return "punti tutti allineati o coincidenti: nessun triangolo";

  // Of points at one place the range insertion kept one vertex; the others find it again.
  std::vector<Cdt::Vertex_handle> vertici(n);
  for (auto v = cdt.finite_vertices_begin(); v != cdt.finite_vertices_end(); ++v)
    vertici[static_cast<size_t>(v->info())] = v;
  for (size_t k = 0; k < n; ++k) {
    if (vertici[k] != Cdt::Vertex_handle()) continue;
    Cdt::Locate_type tipo;
    int i = 0;
    const Cdt::Face_handle f = cdt.locate(punti[k].first, tipo, i);
    if (tipo == Cdt::VERTEX) vertici[k] = f->vertex(i);
  }
  try {
    for (const std::vector<int32_t>& catena : d.Catene)
      for (size_t k = 1; k < catena.size(); ++k) {
        const Cdt::Vertex_handle a = vertici[static_cast<size_t>(catena[k - 1])];
        const Cdt::Vertex_handle b = vertici[static_cast<size_t>(catena[k])];
        if (a != b) cdt.insert_constraint(a, b);
      }
  } catch (const Cdt::Intersection_of_constraints_exception&) {
    return "due linee di discontinuita' si incrociano";
  }

  triangoli.reserve(static_cast<size_t>(cdt.number_of_faces()));
  for (auto f = cdt.finite_faces_begin(); f != cdt.finite_faces_end(); ++f)
    triangoli.push_back({f->vertex(0)->info(), f->vertex(1)->info(), f->vertex(2)->info()});
  return {};
}

}  // namespace varena::mesh
