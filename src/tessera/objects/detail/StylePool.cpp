// SPDX-License-Identifier: MIT
#include <tessera/objects/detail/StylePool.h>

#include <QHash>

namespace tessera::detail {
namespace {

constexpr std::size_t MostStyles = 4096;

bool AreAlike(const TObjectStyle &a, const TObjectStyle &b) {
  return a.font == b.font && a.pen == b.pen && a.brush == b.brush && a.bgColor == b.bgColor &&
         a.useBGColor == b.useBGColor;
}

}  // namespace

StylePool &StylePool::Instance() {
  thread_local StylePool pool;
  return pool;
}

TObjectStylePtr StylePool::Resized(const TObjectStylePtr &style, int sizePt) {
  const auto address = reinterpret_cast<std::uintptr_t>(style.constData());
  Answer &answer = m_answers[(address / alignof(TObjectStyle) * 31 + std::size_t(sizePt)) % m_answers.size()];
  if (answer.asked == style && answer.sizePt == sizePt) return answer.style;
  TObjectStylePtr resized = style;
  resized->font.SetSize(sizePt);
  answer = {style, sizePt, Shared(resized)};
  return answer.style;
}

const TObjectStylePtr &StylePool::Shared(const TObjectStylePtr &style) {
  const TObjectStyle &wanted = *style.constData();
  const std::size_t hash =
      qHashMulti(0, wanted.font.GetName(), wanted.font.GetSize(), wanted.font.GetColor(), int(wanted.font.GetStyle()),
                 wanted.pen.GetColor(), wanted.brush.GetColor(), wanted.bgColor);
  const auto [first, last] = m_styles.equal_range(hash);
  for (auto entry = first; entry != last; ++entry) {
    if (AreAlike(*entry->second.constData(), wanted)) return entry->second;
  }
  if (m_styles.size() >= MostStyles) {
    m_styles.clear();
    m_answers = {};
  }
  return m_styles.emplace(hash, style)->second;
}

}  // namespace tessera::detail
