// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/MapFiles.h>

#include <QObject>

#include <memory>

class QTimer;

namespace tessera {

/// Loads a file in the background: it is read in a thread of its own into a layer that is on no map yet, and then
/// appended to the layers of a map in one step, with the events of TMapLayers::PutLayer. No event comes before that,
/// and none when the loading fails or is cancelled.
///
/// What comes of a file is what comes of LoadMapFile: the layer, its name, the report, error and warnings. Texts are
/// measured for the view at the time of Start. A provider that cannot be run in another thread (MakeRun) loads as it
/// always does, which holds the user interface up and cannot be cancelled.
///
/// Belongs to the thread of the user interface, which needs its event loop. Handlers may do anything.
class TESSERA_CORE_EXPORT TLayerLoading : public QObject {
  Q_OBJECT

 public:
  /// Into `layers`, which may go at any time; a loading is cancelled then.
  explicit TLayerLoading(TMapLayers &layers, QObject *parent = nullptr);
  /// Cancels without a word and waits for the thread, which ends with the next object it reads.
  ~TLayerLoading() override;

  /// Begins; one of the last three signals follows. A loading that is at work is cancelled without a word.
  void Start(const QString &fileName);
  /// Ends a loading, of which nothing will be left; OnCancelled follows. Nothing happens when none is at work.
  void Cancel();
  /// From Start until the moment before the signal of the end.
  [[nodiscard]] bool IsLoading() const { return m_run != nullptr; }

 Q_SIGNALS:
  void OnProgress(int percent);
  /// The layer is on the map.
  void OnLoaded(const tessera::TLoadedFile &loaded);
  /// There is no layer. The error tells why.
  void OnFailed(const tessera::TLoadedFile &loaded);
  void OnCancelled();

 private:
  struct Run;
  void Prepare(Run &run) const;
  void Look();
  void Finish(Run &run);
  /// Puts what was read on the map.
  void HandOver(Run &run);

  THandle<TMapLayers> m_layers;
  std::unique_ptr<Run> m_run;
  QTimer *m_timer;
  int m_shownPercent = 0;
};

}  // namespace tessera
