// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/detail/MitabReader.h>
#include <tessera/formats/detail/MitabShapes.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TText.h>

#include <algorithm>

namespace tessera::detail {
namespace {

/// Progress is shown whenever a further 256th of the objects has been read.
constexpr int ProgressSteps = 256;
/// Numbers of errors from here on are warnings.
constexpr int FirstWarning = 500;
/// Of a rectangle; a rounded one has more.
constexpr int RectanglePoints = 5;

std::vector<TMapPoint> PointsOf(mitab_feature feature, int part) {
  std::vector<TMapPoint> points(std::size_t(std::max(mitab_c_get_vertex_count(feature, part), 0)));
  for (std::size_t i = 0; i < points.size(); ++i) {
    points[i] = {mitab_c_get_vertex_x(feature, part, int(i)), mitab_c_get_vertex_y(feature, part, int(i))};
  }
  return points;
}

void AddPart(mitab_feature feature, int part, TParts &parts) {
  const auto count = std::size_t(std::max(mitab_c_get_vertex_count(feature, part), 0));
  parts.Add().GetPoints().AppendInPlace(count, [&](TMapPoint *point, TBounds &bounds) {
    for (std::size_t i = 0; i < count; ++i, ++point) {
      *point = {mitab_c_get_vertex_x(feature, part, int(i)), mitab_c_get_vertex_y(feature, part, int(i))};
      bounds.Widen(point->X, point->Y);
    }
    return count;
  });
}

void AddParts(mitab_feature feature, TParts &parts) {
  for (int part = 0; part < mitab_c_get_parts(feature); ++part) AddPart(feature, part, parts);
}

}  // namespace

/// What is made of each kind of object.
struct MitabKindReaders {
  struct Entry {
    const char *name;
    void (MitabReader::*read)(mitab_feature feature);
  };
  static constexpr Entry InOrder[] = {
      {"None", &MitabReader::ReadPlace},
      {"Point", &MitabReader::ReadPoints},
      {"FontPoint", &MitabReader::ReadPoints},
      {"CustomPoint", &MitabReader::ReadPoints},
      {"Text", &MitabReader::ReadText},
      {"Pline", &MitabReader::ReadLine},
      {"Arc", &MitabReader::ReadLine},
      {"Region", &MitabReader::ReadRegion},
      {"Rectangle", &MitabReader::ReadRectangle},
      {"Ellipse", &MitabReader::ReadEllipse},
      {"Multipoint", &MitabReader::ReadPoints},
      {"Collection", &MitabReader::ReadMembers},
  };
  static_assert(std::size(InOrder) == MitabReader::KindCount);
};

MitabReader::MitabReader(TMapLayer &layer, mitab_handle file, MitabText &text, TFormatReport &report)
    : m_layer(layer),
      m_watchedLayer(&layer),
      m_map(*layer.GetMapHost()),
      m_file(file),
      m_report(report),
      m_knowsTextWidths(MitabKnowsTextWidths()),
      m_columns(file, text),
      m_styles(m_map, text) {}

void MitabReader::CheckLayer() const {
  if (!m_watchedLayer) throw EInOutError(TFormatReport::tr("the layer was deleted while it was being loaded"));
}

void MitabReader::Read() {
  const int count = mitab_c_get_feature_count(m_file);
  m_map.StartProgress(0, count, QStringLiteral("Loading file"));
  CheckLayer();
  int nextProgress = 0;
  int done = 0;
  for (int id = -1; ReadNext(id); ++done) {
    if (done < nextProgress) continue;
    nextProgress = done + std::max(count / ProgressSteps, 1);
    m_map.ShowProgress(std::min(done, count));
    CheckLayer();
  }
  FinishReport();
}

bool MitabReader::ReadNext(int &id) {
  const MitabNumbers numbers;
  const int next = mitab_c_next_feature_id(m_file, id);
  if (next <= id) {
    CheckEnd();
    return false;
  }
  id = next;
  const MitabFeature feature(mitab_c_read_feature(m_file, id));
  if (feature) {
    ReadObject(feature.get());
  } else {
    ++m_unreadable;
  }
  return true;
}

void MitabReader::CheckEnd() {
  // Other libraries keep the errors of earlier calls.
  const int error = MitabRecodes() ? mitab_c_getlasterrorno() : 0;
  if (error != 0 && error < FirstWarning) m_report.Fail(0, QString::fromUtf8(mitab_c_getlasterrormsg()).simplified());
}

void MitabReader::ReadObject(mitab_feature feature) {
  const std::size_t first = m_objects.size();
  ++m_counts[KindOf(feature)];
  ReadShape(feature);
  if (m_objects.size() == first) ReadPlace(feature);
  const std::string_view values = m_columns.ReadValues(feature);
  for (std::size_t i = first; i < m_objects.size(); ++i) {
    m_objects[i].row = m_values.size();
    m_objects[i].rowSize = values.size();
  }
  m_values.insert(m_values.end(), values.begin(), values.end());
}

std::size_t MitabReader::KindOf(mitab_feature feature) {
  const int kind = mitab_c_get_type(feature);
  return kind >= 0 && kind < int(KindCount) ? std::size_t(kind) : TABFC_NoGeom;
}

void MitabReader::ReadShape(mitab_feature feature) {
  (this->*MitabKindReaders::InOrder[KindOf(feature)].read)(feature);
}

template <class Kind>
Kind &MitabReader::Add(mitab_feature feature) {
  auto object = std::make_unique<Kind>();
  Kind &added = *object;
  m_objects.push_back({std::move(object), m_styles.StyleOf(feature)});
  return added;
}

void MitabReader::ReadPlace(mitab_feature feature) {
  Add<TCustomMapObject>(feature);
}

void MitabReader::AddSymbol(const TMapPoint &place, mitab_feature feature) {
  constexpr int UsualShape = 35;
  auto &symbol = Add<TSymbol>(feature);
  const int shape = mitab_c_get_symbol_no(feature);
  symbol.SetShape(shape > 0 ? shape : UsualShape);
  symbol.MoveTo(place.X, place.Y);
}

void MitabReader::ReadPoints(mitab_feature feature) {
  for (int part = 0; part < mitab_c_get_parts(feature); ++part) {
    for (int i = 0; i < mitab_c_get_vertex_count(feature, part); ++i) {
      AddSymbol({mitab_c_get_vertex_x(feature, part, i), mitab_c_get_vertex_y(feature, part, i)}, feature);
    }
  }
}

void MitabReader::ReadText(mitab_feature feature) {
  auto &text = Add<TText>(feature);
  const double angleDeg = mitab_c_get_text_angle(feature);
  const double height = mitab_c_get_text_height(feature);
  const TMapPoint anchor =
      TextAnchor({mitab_c_get_vertex_x(feature, 0, 0), mitab_c_get_vertex_y(feature, 0, 0)}, angleDeg, height);
  text.SetText(m_columns.TextOf(mitab_c_get_text(feature)));
  text.SetAngle(angleDeg);
  text.SetHeight(height);
  text.SetWidth(mitab_c_get_text_width(feature));
  text.MoveTo(anchor.X, anchor.Y);
  if (mitab_c_get_text_justification(feature) != TABTJ_Left) ++m_justified;
  if (mitab_c_get_text_spacing(feature) != TABTS_Single) ++m_spaced;
  if (mitab_c_get_text_linetype(feature) != TABTL_NoLine) ++m_labelLines;
}

void MitabReader::ReadLine(mitab_feature feature) {
  AddParts(feature, Add<TPolyline>(feature).GetParts());
}

void MitabReader::ReadRegion(mitab_feature feature) {
  AddParts(feature, Add<TRegion>(feature).GetParts());
}

void MitabReader::ReadRectangle(mitab_feature feature) {
  if (mitab_c_get_vertex_count(feature, 0) > RectanglePoints) {
    ++m_roundRectangles;
    return ReadRegion(feature);
  }
  TBounds bounds = TBounds::Empty();
  for (const TMapPoint &corner : PointsOf(feature, 0)) bounds.Widen(corner.X, corner.Y);
  auto &rectangle = Add<TRectangle>(feature);
  rectangle.SetX0(bounds.MinX);
  rectangle.SetY0(bounds.MinY);
  rectangle.SetX1(bounds.MaxX);
  rectangle.SetY1(bounds.MaxY);
}

void MitabReader::ReadEllipse(mitab_feature feature) {
  const auto figure = CircleThrough(PointsOf(feature, 0));
  if (!figure) {
    ++m_ellipses;
    return ReadRegion(feature);
  }
  auto &circle = Add<TCircle>(feature);
  circle.SetX(figure->center.X);
  circle.SetY(figure->center.Y);
  circle.SetRadius(figure->radius);
}

void MitabReader::ReadMembers(mitab_feature feature) {
  using Member = decltype(mitab_c_get_collection_region_ref);
  for (const Member member : {mitab_c_get_collection_region_ref, mitab_c_get_collection_polyline_ref,
                              mitab_c_get_collection_multipoint_ref}) {
    if (member == nullptr) continue;
    if (mitab_feature found = member(feature)) ReadShape(found);
  }
}

void MitabReader::Deliver() {
  CheckLayer();
  m_columns.PutColumns(m_layer.GetFields());
  CheckLayer();
  m_layer.ReserveObjects(m_objects.size());
  for (Staged &staged : m_objects) {
    DeliverObject(staged);
    CheckLayer();
  }
}

void MitabReader::DeliverObject(Staged &staged) {
  const TCustomMapObject *given = staged.object.get();
  const bool isText = given->GetFontKind() == TObjectFont::Text;
  auto *text = isText ? static_cast<TText *>(staged.object.get()) : nullptr;
  const double width = isText ? text->GetWidth() : 0;
  const double height = isText ? text->GetHeight() : 0;
  TCustomMapObject *added = m_layer.AddObject(std::move(staged.object), false);
  if (added != given) return;
  // It has got the map's tools and no values, and a text the box of its letters.
  added->SetStyle(staged.style);
  added->GetFields().SetRecord({m_values.data() + staged.row, staged.rowSize});
  if (!isText) return;
  const double ofLetters = LettersWidthToHeight(m_map.GetCanvas(), text->GetFont(), text->GetText());
  text->SetHeight(height);
  text->SetWidth(m_knowsTextWidths || ofLetters == 0 ? width : height * ofLetters);
}

void MitabReader::FinishReport() {
  for (std::size_t kind = 0; kind < KindCount; ++kind) {
    m_report.CountObject(QString::fromLatin1(MitabKindReaders::InOrder[kind].name), m_counts[kind]);
  }
  const auto countOf = [this](int kind) { return m_counts[std::size_t(kind)]; };
  m_report.Lose(TFormatReport::tr("objects that cannot be read: %1"), m_unreadable);
  m_report.Lose(TFormatReport::tr("arcs, read as lines: %1"), countOf(TABFC_Arc));
  m_report.Lose(TFormatReport::tr("rounded rectangles, read as regions: %1"), m_roundRectangles);
  m_report.Lose(TFormatReport::tr("ellipses that are no circles, read as regions: %1"), m_ellipses);
  m_report.Lose(TFormatReport::tr("multipoints, read as symbols: %1"), countOf(TABFC_MultiPoint));
  m_report.Lose(TFormatReport::tr("collections, read as their members: %1"), countOf(TABFC_Collection));
  m_report.Lose(TFormatReport::tr("justifications of texts: %1"), m_justified);
  m_report.Lose(TFormatReport::tr("line spacings of texts: %1"), m_spaced);
  m_report.Lose(TFormatReport::tr("label lines of texts: %1"), m_labelLines);
  m_styles.ReportLosses(m_report);
}

}  // namespace tessera::detail
