// SPDX-License-Identifier: MIT
#include <tessera/editing/TMapEdits.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/MapGesture.h>
#include <tessera/objects/TText.h>
#include <tessera/tools/TTextTool.h>

#include <QApplication>
#include <QInputMethod>

#include <algorithm>
#include <array>
#include <utility>

namespace tessera {
namespace {

/// The start of the character before, and the end of the one behind, a place in a text.
int Before(const QString &text, int at) {
  const bool isPair = at > 1 && text[at - 1].isLowSurrogate() && text[at - 2].isHighSurrogate();
  return at - (isPair ? 2 : 1);
}
int Behind(const QString &text, int at) {
  const bool isPair = at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
  return at + (isPair ? 2 : 1);
}

void UpdateInputMethod() {
  QGuiApplication::inputMethod()->update(Qt::ImCursorRectangle);
}

}  // namespace

TTextTool::TTextTool(QObject *parent)
    : TCustomMapTool(parent), m_typing(std::make_unique<detail::MapGesture>([this] { Draw(); }, [] {})) {
  SetDisplayName(QStringLiteral("Text Tool"));
  SetCursor(crIBeam);
  connect(&m_blink, &QTimer::timeout, this, [this] {
    m_isCaretInSight = !m_isCaretInSight;
    ShowChange();
  });
}

TTextTool::~TTextTool() {
  StopTyping();
}

bool TTextTool::GetEnabled() const {
  return TCustomMapTool::GetEnabled() && GetEditableLayer() != nullptr;
}

bool TTextTool::GetInGesture() const {
  return m_typing->IsRunning();
}

TCanvas &TTextTool::Canvas() const {
  TCanvas &canvas = GetTessera()->GetCanvas();
  canvas.Font() = GetTessera()->GetOptions()->GetDefaultTextFont();
  return canvas;
}

QString TTextTool::GetShownText() const {
  return QString(m_text).insert(m_currentChar, m_preedit);
}

QRect TTextTool::GetCaretRect() const {
  if (!GetInGesture()) return {};
  TCanvas &canvas = Canvas();
  const int height = canvas.TextHeight(QStringLiteral("Wq"));
  const int before = canvas.TextWidth(GetShownText().left(m_currentChar + m_preeditCursor));
  return {m_anchor.x() + before, m_anchor.y() - height, 1, height};
}

void TTextTool::Draw() {
  if (!GetInGesture()) return;
  TCanvas &canvas = Canvas();
  canvas.Brush().SetStyle(TBrushStyle::bsClear);
  const QString text = GetShownText();
  canvas.TextOut(m_anchor.x(), m_anchor.y() - canvas.TextHeight(text), text);
  canvas.Pen() = TPen();
  if (!m_preedit.isEmpty()) {
    const int from = m_anchor.x() + canvas.TextWidth(text.left(m_currentChar));
    const int to = m_anchor.x() + canvas.TextWidth(text.left(m_currentChar + int(m_preedit.size())));
    canvas.Polyline(std::array{TPoint(from, m_anchor.y()), TPoint(to, m_anchor.y())});
  }
  if (m_isCaretInSight) {
    const QRect caret = GetCaretRect();
    canvas.Polyline(std::array{TPoint(caret.topLeft()), TPoint(caret.bottomLeft())});
  }
}

void TTextTool::ShowChange() {
  // The picture without the text is copied to the screen, and the text is drawn on it.
  if (GetTessera() != nullptr) GetTessera()->Invalidate();
}

void TTextTool::StandCaret() {
  constexpr int TimesAPeriod = 2;
  m_isCaretInSight = true;
  // 0 where carets do not blink.
  if (const int period = QApplication::cursorFlashTime(); period > 0) m_blink.start(period / TimesAPeriod);
  UpdateInputMethod();
  ShowChange();
}

void TTextTool::Init() {
  Abandon();
  TCustomMapTool::Init();
}

void TTextTool::Init(int x, int y) {
  if (GetTessera() == nullptr) return;
  Abandon();
  m_anchor = QPoint(x, y);
  m_typing->Begin(*GetTessera(), Qt::NoButton);
  SetCurrentChar(0);
}

void TTextTool::SetCurrentChar(int index) {
  m_currentChar = std::clamp(index, 0, int(m_text.size()));
  if (GetInGesture()) StandCaret();
}

void TTextTool::DeleteCurrentChar(bool backward) {
  if (backward && m_currentChar > 0) {
    const int from = Before(m_text, m_currentChar);
    m_text.remove(from, m_currentChar - from);
    m_currentChar = from;
  } else if (!backward && m_currentChar < m_text.size()) {
    m_text.remove(m_currentChar, Behind(m_text, m_currentChar) - m_currentChar);
  }
  SetCurrentChar(m_currentChar);
}

void TTextTool::MouseDown(Qt::MouseButton button, TShiftState /*shift*/, int x, int y) {
  if (button != Qt::LeftButton || std::exchange(m_isSecondPressDue, false) || !GetEnabled()) return;
  const QPointer<TTextTool> self(this);
  if (GetInGesture()) Complete();
  if (self) Init(x, y);
}

void TTextTool::MouseMove(TShiftState /*shift*/, int /*x*/, int /*y*/) {
  m_isSecondPressDue = false;
}

void TTextTool::KeyDown(int &key, TShiftState /*shift*/) {
  if (!GetInGesture()) return;
  switch (key) {
    case Qt::Key_Backspace:
      return DeleteCurrentChar(true);
    case Qt::Key_Delete:
      return DeleteCurrentChar(false);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:  // puts the text as well; this is intended
      Complete();
      return;
    case Qt::Key_End:
      return SetCurrentChar(int(m_text.size()));
    case Qt::Key_Home:
      return SetCurrentChar(0);
    case Qt::Key_Left:
      return SetCurrentChar(Before(m_text, m_currentChar));
    case Qt::Key_Right:
      return SetCurrentChar(Behind(m_text, m_currentChar));
    default:
      return;
  }
}

void TTextTool::KeyPress(QChar &key) {
  if (!GetInGesture() || key.category() == QChar::Other_Control) return;
  m_text.insert(m_currentChar, key);
  SetCurrentChar(m_currentChar + 1);
}

void TTextTool::Preedit(const QString &text, int cursor) {
  if (!GetInGesture() || (text.isEmpty() && m_preedit.isEmpty())) return;
  m_preedit = text;
  m_preeditCursor = std::clamp(cursor, 0, int(text.size()));
  StandCaret();
}

void TTextTool::PutText(TMapLayer &layer, const QString &text) {
  const TMapPoint at = GetMapPoint(m_anchor.x(), m_anchor.y());
  auto label = std::make_unique<TText>();
  label->MoveTo(at.X, at.Y);
  label->SetText(text);
  // The layer gives it the font, with the other tools of the options; a handler may destroy it.
  auto *added = static_cast<TText *>(TMapEdits(layer).AddObject(layer, std::move(label)));
  if (added != nullptr) added->AutoSizeText();
}

bool TTextTool::Complete() {
  TMapLayer *layer = GetEditableLayer();
  if (!GetInGesture() || layer == nullptr) return false;
  const QString text = m_text;
  Abandon();
  return CompleteWith([&] {
    PutText(*layer, text);
    return true;
  });
}

void TTextTool::Cancel() {
  if (GetTessera() == nullptr) return;
  const bool wasTyping = GetInGesture();
  Abandon();
  if (wasTyping) TCustomMapTool::Cancel();
}

void TTextTool::Done() {
  Abandon();
  TCustomMapTool::Done();
}

void TTextTool::Abandon() {
  m_isSecondPressDue = false;
  StopTyping();
}

void TTextTool::StopTyping() {
  m_blink.stop();
  if (!m_typing->IsRunning()) return;
  m_typing->End();
  m_text.clear();
  m_preedit.clear();
  m_preeditCursor = 0;
  m_currentChar = 0;
  QGuiApplication::inputMethod()->reset();
  ShowChange();
}

}  // namespace tessera
