// SPDX-License-Identifier: MIT
#include <tessera/graphics/TPen.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace tessera {
namespace {

/// In the order of TPenStyle.
constexpr Qt::PenStyle QtStyles[] = {Qt::SolidLine,      Qt::DashLine, Qt::DotLine,  Qt::DashDotLine,
                                     Qt::DashDotDotLine, Qt::NoPen,    Qt::SolidLine};

TPenStyle StyleOf(Qt::PenStyle style) {
  const auto *found = std::find(std::begin(QtStyles), std::end(QtStyles), style);
  return found == std::end(QtStyles) ? TPenStyle::psDash : TPenStyle(found - std::begin(QtStyles));
}

}  // namespace

QPen TPen::ToQPen() const {
  return {ToQColor(m_color), double(m_widthPx), QtStyles[std::size_t(m_style)]};
}

TPen TPen::FromQPen(const QPen &pen) {
  constexpr double Widest = std::numeric_limits<int>::max();
  TPen result;
  result.m_color = FromQColor(pen.color());
  result.m_widthPx = int(std::clamp(std::round(pen.widthF()), 0.0, Widest));
  result.m_style = StyleOf(pen.style());
  return result;
}

}  // namespace tessera
