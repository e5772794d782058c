// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TShiftState.h>
#include <tessera/objects/TMapHost.h>

#include <QWidget>

namespace tessera {

class TTessera;

/// The events of the map control, as signals. In/out parameters are references, so connect their handlers directly.
///
/// A handler may do anything to the map's layers and objects; one of an input event may also delete the map. What it
/// throws comes out of the call that led to the event, and ends in the message sink where that is an event of the
/// platform: input, painting.
class TESSERA_WIDGETS_EXPORT TTesseraEvents : public QWidget, public TMapHost {
  Q_OBJECT
  Q_MOC_INCLUDE(<tessera / map / TTessera.h>)

 public:
  using QWidget::QWidget;

  void StartProgress(int min, int max, const QString &caption) override;
  void ShowProgress(int position) override;
  void StopProgress() override;

 Q_SIGNALS:
  void OnAddLayer(tessera::TTessera *sender, tessera::TMapLayer *layer);
  /// `confirmDelete` tells whether allowDelete is listened to: it is false when the layer is being destroyed already.
  void OnBeforeDelLayer(tessera::TTessera *sender, tessera::TMapLayer *layer, bool confirmDelete, bool &allowDelete);
  void OnMapToolChanged(tessera::TTessera *sender);
  void OnAfterDelLayer(tessera::TTessera *sender);
  void OnAddObject(tessera::TTessera *sender, tessera::TCustomMapObject *mapObject);
  /// Before an object is taken out or deleted by editing (see TMapLayer), which `canRemove` may refuse.
  void OnBeforeRemoveObject(tessera::TTessera *sender, tessera::TCustomMapObject *mapObject, bool &canRemove);
  void OnAfterRemoveObject(tessera::TTessera *sender);
  void OnAddSelection(tessera::TTessera *sender, tessera::TCustomMapObject *mapObject);
  void OnDelSelection(tessera::TTessera *sender, tessera::TCustomMapObject *mapObject);
  /// Before an object is destroyed, while it is still whole.
  void OnDeleteObject(tessera::TCustomMapObject *sender);
  void OnStartProgress(tessera::TTessera *sender, int min, int max, const QString &caption);
  void OnShowProgress(tessera::TTessera *sender, int position);
  void OnStopProgress(tessera::TTessera *sender);
  void OnUpdate(tessera::TTessera *sender);
  /// Keys are those of Qt::Key. A handler may change or, with 0, take the key; a key that is taken types nothing.
  void OnKeyDown(tessera::TTessera *sender, int &key, tessera::TShiftState shift);
  void OnKeyUp(tessera::TTessera *sender, int &key, tessera::TShiftState shift);
  /// A character that was typed; one beyond the first 65536 comes as its two surrogates.
  void OnKeyPress(tessera::TTessera *sender, QChar &key);
  /// The second press of a double click comes after OnDblClick, with ssDouble.
  void OnMouseDown(tessera::TTessera *sender, Qt::MouseButton button, tessera::TShiftState shift, int x, int y);
  void OnMouseUp(tessera::TTessera *sender, Qt::MouseButton button, tessera::TShiftState shift, int x, int y);
  void OnMouseMove(tessera::TTessera *sender, tessera::TShiftState shift, int x, int y);
  void OnDblClick(tessera::TTessera *sender);
  /// The off-screen picture has been rebuilt; it may be drawn on through the canvas.
  void OnPaint(tessera::TTessera *sender);
  /// The screen picture has been drawn anew: what stood on it for a while, like a figure in XOR mode, is gone.
  void OnScreenRepainted(tessera::TTessera *sender);

 private:
  // What layers, objects and the selection tell is sent on.
  void FireAddLayer(TMapLayer &layer) override;
  void FireBeforeDelLayer(TMapLayer &layer, bool confirmDelete, bool &allowDelete) override;
  void FireAfterDelLayer() override;
  void FireAddObject(TCustomMapObject &object) override;
  void FireBeforeRemoveObject(TCustomMapObject &object, bool &canRemove) override;
  void FireAfterRemoveObject() override;
  void FireDeleteObject(TCustomMapObject &object) override;
  void FireAddSelection(TCustomMapObject &object) override;
  void FireDelSelection(TCustomMapObject &object) override;
  void FireUpdate() override;
  /// Every one of these is the map control.
  TTessera *Sender();
};

}  // namespace tessera
