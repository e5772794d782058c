// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TCustomMapTool.h>

#include <QPoint>
#include <QTimer>

#include <memory>

namespace tessera {

class TCanvas;
namespace detail {
class MapGesture;
}

/// Types labels onto the map: a click starts one, whose lower left corner stands where the click was, Enter, Escape or
/// another click puts it into the editable layer. Meanwhile text and caret stand on the screen picture, in the font
/// that the map's options have for texts.
///
/// Positions in the text count 16-bit characters; the caret never stands between the two of a surrogate pair.
class TESSERA_WIDGETS_EXPORT TTextTool : public TCustomMapTool {
  Q_OBJECT

 public:
  explicit TTextTool(QObject *parent = nullptr);
  /// The text goes with the tool.
  ~TTextTool() override;

  void Init() override;
  /// Starts a text at a client pixel. Nothing without a map.
  void Init(int x, int y);
  /// Puts the caret before a character; beyond either end it stands there.
  void SetCurrentChar(int index);
  [[nodiscard]] int GetCurrentChar() const { return m_currentChar; }
  /// Deletes the character before the caret, or else the one behind it.
  void DeleteCurrentChar(bool backward);
  /// Draws the text on the screen picture, with the caret if that is in sight now.
  void Draw();

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  void MouseMove(TShiftState shift, int x, int y) override;
  void DblClick() override { m_isSecondPressDue = true; }
  void KeyDown(int &key, TShiftState shift) override;
  /// Control characters type nothing.
  void KeyPress(QChar &key) override;
  void Preedit(const QString &text, int cursor) override;
  /// Puts the text, even an empty one, into the editable layer. False, and nothing happens, without such a layer and
  /// when no text was started.
  bool Complete() override;
  /// Drops the text.
  void Cancel() override;
  void Done() override;
  [[nodiscard]] bool GetEnabled() const override;

  [[nodiscard]] QRect GetCaretRect() const override;
  [[nodiscard]] bool GetWantsKeys() const override { return GetInGesture(); }
  [[nodiscard]] bool GetInGesture() const override;
  [[nodiscard]] bool GetSnaps() const override { return true; }
  [[nodiscard]] const QString &GetText() const { return m_text; }

 protected:
  void Abandon() override;

 private:
  /// The map's canvas with the font of the label.
  [[nodiscard]] TCanvas &Canvas() const;
  /// The text with what the input method is composing in its place.
  [[nodiscard]] QString GetShownText() const;
  void PutText(TMapLayer &layer, const QString &text);
  void StopTyping();
  void ShowChange();
  void StandCaret();

  std::unique_ptr<detail::MapGesture> m_typing;
  QTimer m_blink;
  QString m_text;
  QString m_preedit;
  QPoint m_anchor;
  int m_currentChar = 0;
  int m_preeditCursor = 0;
  bool m_isCaretInSight = false;
  /// The press that comes next is the second one of a double click, which has been served.
  bool m_isSecondPressDue = false;
};

}  // namespace tessera
