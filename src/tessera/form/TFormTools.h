// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/StdMapTools.h>
#include <tessera/form/TFormComponent.h>

namespace tessera {
namespace detail {
class MapByName;
}

/// What stands on forms for the components that are no widgets, each under the name of its component.
namespace form {

/// Base of the tools on forms. Its properties and events are those of the tool, but that the map is linked by its name.
class TESSERA_WIDGETS_EXPORT TFormTool : public TFormComponent {
  Q_OBJECT
  Q_PROPERTY(bool Active READ GetActive WRITE SetActive NOTIFY OnToolStateChanged)
  Q_PROPERTY(QString DisplayName READ GetDisplayName WRITE SetDisplayName)
  Q_PROPERTY(tessera::TCustomMapTool::TCursor Cursor READ GetCursor WRITE SetCursor)
  Q_PROPERTY(QByteArray Tessera READ GetMapName WRITE SetMapName)

 public:
  /// None when it was deleted; then nothing can be set any more.
  [[nodiscard]] TCustomMapTool *GetTool() const { return static_cast<TCustomMapTool *>(GetComponent()); }

  [[nodiscard]] bool GetActive() const;
  [[nodiscard]] QString GetDisplayName() const;
  void SetDisplayName(const QString &name);
  [[nodiscard]] tessera::TCustomMapTool::TCursor GetCursor() const;
  void SetCursor(tessera::TCustomMapTool::TCursor cursor);
  /// The name of a map on the same form, which may come later.
  [[nodiscard]] QByteArray GetMapName() const;
  void SetMapName(const QByteArray &name);

 public Q_SLOTS:
  /// What handlers of the tool's events throw ends in the message sink.
  void SetActive(bool isActive);

 Q_SIGNALS:
  void OnComplete(tessera::TCustomMapTool *sender);
  void OnCancel(tessera::TCustomMapTool *sender);
  void OnToolStateChanged(tessera::TCustomMapTool *sender);

 protected:
  TFormTool(std::unique_ptr<TCustomMapTool> tool, QWidget *parent);

 private:
  detail::MapByName *m_mapByName;
};

/// A tool on a form that is a `Tool`.
template <class Tool>
class TFormToolOf : public TFormTool {
 public:
  explicit TFormToolOf(QWidget *parent = nullptr) : TFormTool(std::make_unique<Tool>(), parent) {}
  /// The tool itself; none when it was deleted.
  [[nodiscard]] Tool *Get() const { return static_cast<Tool *>(GetTool()); }
};

/// A tool on a form that selects by an area.
template <class Tool>
class TFormAreaToolOf : public TFormToolOf<Tool> {
 public:
  using TFormToolOf<Tool>::TFormToolOf;
  [[nodiscard]] bool GetWithin() const { return this->Get() && this->Get()->GetWithin(); }
  void SetWithin(bool isWithin) {
    if (this->Get()) this->Get()->SetWithin(isWithin);
  }
};

class TESSERA_WIDGETS_EXPORT TSelectionTool : public TFormToolOf<tessera::TSelectionTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TRectSelectionTool : public TFormAreaToolOf<tessera::TRectSelectionTool> {
  Q_OBJECT
  Q_PROPERTY(bool Within READ GetWithin WRITE SetWithin)

 public:
  using TFormAreaToolOf::TFormAreaToolOf;
};

class TESSERA_WIDGETS_EXPORT TCircleSelectionTool : public TFormAreaToolOf<tessera::TCircleSelectionTool> {
  Q_OBJECT
  Q_PROPERTY(bool Within READ GetWithin WRITE SetWithin)

 public:
  using TFormAreaToolOf::TFormAreaToolOf;
};

class TESSERA_WIDGETS_EXPORT TPolygonSelectionTool : public TFormAreaToolOf<tessera::TPolygonSelectionTool> {
  Q_OBJECT
  Q_PROPERTY(bool Within READ GetWithin WRITE SetWithin)

 public:
  using TFormAreaToolOf::TFormAreaToolOf;
};

class TESSERA_WIDGETS_EXPORT TZoomInTool : public TFormToolOf<tessera::TZoomInTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TZoomOutTool : public TFormToolOf<tessera::TZoomOutTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TPanTool : public TFormToolOf<tessera::TPanTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TMoveTool : public TFormToolOf<tessera::TMoveTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TTransformTool : public TFormToolOf<tessera::TTransformTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TVertexTool : public TFormToolOf<tessera::TVertexTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TLineTool : public TFormToolOf<tessera::TLineTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TPolylineTool : public TFormToolOf<tessera::TPolylineTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TRectTool : public TFormToolOf<tessera::TRectTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TRegionTool : public TFormToolOf<tessera::TRegionTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TCircleTool : public TFormToolOf<tessera::TCircleTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TSymbolTool : public TFormToolOf<tessera::TSymbolTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TTextTool : public TFormToolOf<tessera::TTextTool> {
  Q_OBJECT

 public:
  using TFormToolOf::TFormToolOf;
};

class TESSERA_WIDGETS_EXPORT TIdentifyTool : public TFormToolOf<tessera::TIdentifyTool> {
  Q_OBJECT

 public:
  explicit TIdentifyTool(QWidget *parent = nullptr);

 Q_SIGNALS:
  void OnIdentify(tessera::TIdentifyTool *sender, const tessera::TIdentifyTool::Objects &objects);
};

/// With the properties of its measure, which are those of TScaleBar.
class TESSERA_WIDGETS_EXPORT TMeasureTool : public TFormToolOf<tessera::TMeasureTool> {
  Q_OBJECT
  Q_PROPERTY(tessera::TMapMeasure::TUnit Unit READ GetUnit WRITE SetUnit)
  Q_PROPERTY(bool Geodetic READ GetGeodetic WRITE SetGeodetic)
  Q_PROPERTY(double MetresPerUnit READ GetMetresPerUnit WRITE SetMetresPerUnit)

 public:
  explicit TMeasureTool(QWidget *parent = nullptr);

  [[nodiscard]] tessera::TMapMeasure::TUnit GetUnit() const { return GetMeasure().Unit; }
  void SetUnit(tessera::TMapMeasure::TUnit unit) { Set(&TMapMeasure::Unit, unit); }
  [[nodiscard]] bool GetGeodetic() const { return GetMeasure().Geodetic; }
  void SetGeodetic(bool geodetic) { Set(&TMapMeasure::Geodetic, geodetic); }
  [[nodiscard]] double GetMetresPerUnit() const { return GetMeasure().MetresPerUnit; }
  void SetMetresPerUnit(double metres) { Set(&TMapMeasure::MetresPerUnit, metres); }

 Q_SIGNALS:
  void OnMeasure(tessera::TMeasureTool *sender, const QString &text);

 private:
  [[nodiscard]] TMapMeasure GetMeasure() const { return Get() ? Get()->GetMeasure() : TMapMeasure(); }
  template <typename Value>
  void Set(Value TMapMeasure::*member, Value value) {
    TMapMeasure measure = GetMeasure();
    measure.*member = value;
    if (Get()) Get()->SetMeasure(measure);
  }
};

}  // namespace form
}  // namespace tessera
