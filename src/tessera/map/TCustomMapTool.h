// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TMapPoint.h>
#include <tessera/base/TShiftState.h>

#include <QObject>
#include <QPointer>
#include <QRect>

#include <functional>
#include <optional>

namespace tessera {

class TCustomMapObject;
class TMapLayer;
class TMapToolsManager;
class TTessera;

/// Base of the interactive tools of a map. The map hands all its input to its active tool; at most one is active. Here
/// a tool does nothing with it.
///
/// A tool stands beside the map and belongs to neither the map nor its manager: one that goes leaves both, and a map
/// that goes leaves its tools without one. Coordinates of the mouse are client pixels, keys those of Qt::Key. Whatever
/// a handler of input throws ends in the message sink. Handlers of a tool's events may do anything, delete the tool or
/// the map too.
class TESSERA_WIDGETS_EXPORT TCustomMapTool : public QObject {
  Q_OBJECT
  Q_MOC_INCLUDE(<tessera / map / TTessera.h>)
  Q_PROPERTY(bool Active READ GetActive WRITE SetActive NOTIFY OnToolStateChanged)
  Q_PROPERTY(QString DisplayName READ GetDisplayName WRITE SetDisplayName)
  Q_PROPERTY(tessera::TCustomMapTool::TCursor Cursor READ GetCursor WRITE SetCursor)
  Q_PROPERTY(tessera::TTessera *Tessera READ GetTessera WRITE SetTessera)

 public:
  /// Shapes of the mouse pointer, by the numbers they have in form files.
  enum TCursor : std::int16_t {
    crDefault = 0,
    crNone = -1,
    crArrow = -2,
    crCross = -3,
    crIBeam = -4,
    crHourGlass = -11,
    crHandPoint = -21,
    crSizeAll = -22
  };
  Q_ENUM(TCursor)

  explicit TCustomMapTool(QObject *parent = nullptr);
  ~TCustomMapTool() override;

  // Input, while the tool is active.

  virtual void DblClick() {}
  virtual void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y);
  virtual void MouseMove(TShiftState shift, int x, int y);
  virtual void MouseUp(Qt::MouseButton button, TShiftState shift, int x, int y);
  /// May change the key or, with 0, take it: the program's handlers come afterwards, and a key that is taken types
  /// nothing.
  virtual void KeyDown(int &key, TShiftState shift);
  virtual void KeyUp(int &key, TShiftState shift);
  /// A character that was typed; one beyond the first 65536 comes as its two surrogates.
  virtual void KeyPress(QChar &key);

  /// Ends what the tool is doing, by itself or for the program. Here it sends OnComplete. Drawing tools answer whether
  /// an object came of it.
  virtual bool Complete();
  /// Gives up what the tool is doing. Here it sends OnCancel.
  virtual void Cancel();
  /// Readies the map for this tool, which has become active: the mouse pointer takes the tool's shape.
  virtual void Init();
  /// Leaves the map as it is without a tool. @pre on a map
  virtual void Done();
  /// Whether using the tool makes sense now: here, whether its map has a layer.
  [[nodiscard]] virtual bool GetEnabled() const;

  // What the map asks of its active tool beyond that.

  /// Text that an input method is still composing, to be shown at the caret; empty when there is none (any more).
  /// `cursor` counts its characters before the cursor.
  virtual void Preedit(const QString &text, int cursor);
  /// Where typed text goes to, in client pixels; empty for a tool that does not take any.
  [[nodiscard]] virtual QRect GetCaretRect() const { return {}; }
  /// Whether the keys now belong to the tool, so that the map itself leaves them alone.
  [[nodiscard]] virtual bool GetWantsKeys() const { return false; }
  /// Whether the places of the mouse are drawn to what the map's Snapping says, as the tools that draw and reshape let
  /// them.
  [[nodiscard]] virtual bool GetSnaps() const { return false; }
  /// Whether they may be drawn to an object: not to one that is just being changed.
  [[nodiscard]] virtual bool IsSnapTarget(const TCustomMapObject & /*object*/) const { return true; }
  /// Whether something has begun that Cancel would give up.
  [[nodiscard]] virtual bool GetInGesture() const { return false; }

  [[nodiscard]] bool GetActive() const { return m_isActive; }
  /// On a map, OnToolStateChanged and the map's OnMapToolChanged follow, then the tool that was active before becomes
  /// inactive, with the same events and its Done, and this one gets its Init; or its Done, when it becomes inactive.
  /// Each of these steps is taken whatever handlers throw, and the first exception goes on. Nothing follows without a
  /// map.
  void SetActive(bool isActive);
  [[nodiscard]] const QString &GetDisplayName() const { return m_displayName; }
  void SetDisplayName(const QString &name) { m_displayName = name; }
  [[nodiscard]] TCursor GetCursor() const { return m_cursor; }
  /// Shows with the next Init.
  void SetCursor(TCursor cursor) { m_cursor = cursor; }
  [[nodiscard]] TTessera *GetTessera() const;
  /// Moves the tool to a map, or with none off its map. An active tool ends its work on the one map, by Done, and is
  /// the active tool of the other, by Init; no event tells of that.
  void SetTessera(TTessera *map);
  [[nodiscard]] TMapToolsManager *GetMapToolsManager() const;
  void SetMapToolsManager(TMapToolsManager *manager);

  /// The map among the children of `component`. The first child that is a map wins; otherwise the last child decides by
  /// what lies below it, even when something was found below an earlier one, which is intended.
  [[nodiscard]] static TTessera *FindTessera(const QObject &component);

 Q_SIGNALS:
  void OnComplete(tessera::TCustomMapTool *sender);
  void OnCancel(tessera::TCustomMapTool *sender);
  void OnToolStateChanged(tessera::TCustomMapTool *sender);

 protected:
  /// Forgets all that has begun and takes away what of it shows, without a word.
  virtual void Abandon() {}
  /// The map point that a client pixel is drawn to; none where it stands for itself.
  [[nodiscard]] std::optional<TMapPoint> GetSnapPoint(int x, int y) const;
  /// The map point that a client pixel stands for, or is drawn to. @pre on a map
  [[nodiscard]] TMapPoint GetMapPoint(int x, int y) const;
  /// The layer that drawing adds to; none when there is none.
  [[nodiscard]] TMapLayer *GetEditableLayer() const;
  /// Complete of a tool that makes something: runs `create` and then sends OnComplete whatever that throws.
  bool CompleteWith(const std::function<bool()> &create);

 private:
  friend class TMapToolsManager;
  /// The map is going, or has let go of its tools.
  void ForgetMap();
  void LeaveMap();
  void EnterMap();

  QString m_displayName = QStringLiteral("CustomMapTool");
  QPointer<TTessera> m_map;
  QPointer<TMapToolsManager> m_manager;
  TCursor m_cursor = crDefault;
  bool m_isActive = false;
};

}  // namespace tessera
