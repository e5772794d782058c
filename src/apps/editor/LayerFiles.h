// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/UnsavedChanges.h>
#include <tessera/layers/TLayerLoading.h>

#include <QWidget>

#include <optional>

namespace tessera::apps {

/// What the editor asks a person about files. The answers come from dialogs at first; a program without a person puts
/// its own in their place.
struct FileQuestions {
  /// Whether to go on although the things listed would be lost.
  std::function<bool(const QString &question, const QStringList &losses)> goOnLosing;
  enum class Unsaved { Save, Discard, Cancel };
  /// What to do about the unsaved changes of a layer.
  std::function<Unsaved(const TMapLayer &layer)> aboutUnsaved;
  /// The file to write a layer to; empty for none.
  std::function<QString(const TMapLayer &layer)> whereToSave;
  enum class Left { Restore, Discard, Keep };
  /// What to do about unsaved changes of these layers, which a run that came to a sudden end has left.
  std::function<Left(const QStringList &layers)> aboutLeft;
};

/// Opens, saves and closes the layers of the editor's map, and asks before anything is lost.
class LayerFiles : public QObject {
  Q_OBJECT

 public:
  LayerFiles(QWidget &window, TTessera &map);

  /// Loads files and workspaces in the background, one after the other, on top of what is open, the first lowest. If
  /// nothing was open before, everything is shown, unless the person has moved the view meanwhile. Workspaces hold the
  /// window up.
  void Open(const QStringList &fileNames);
  [[nodiscard]] bool IsOpening() const { return m_isOpening; }
  /// Gives up what is being loaded and what waits for its turn. Files that are there already stay.
  void CancelOpening();
  /// Writes a layer. Where it would replace its own source and something would be gone for good, it asks first. True on
  /// success.
  bool SaveTo(TMapLayer &layer, const QString &fileName);
  /// Writes a layer to its own file, or, when that would lose something or there is none, where the person says.
  bool Save(TMapLayer &layer);
  bool SaveAs(TMapLayer &layer);
  /// Deletes a layer once its unsaved changes are saved or given up, which is asked whenever a layer of the map is to
  /// be deleted. False when the person thinks better of it.
  bool Close(const TMapLayer &layer);
  /// Settles the unsaved changes of all layers. False when the person thinks better of it.
  bool SettleAll();
  void AskForFilesToOpen();
  /// The file that a dialog proposes for a layer: its own, or, if something would be gone then, a copy beside it.
  [[nodiscard]] static QString ProposeFileFor(const TMapLayer &layer);

  [[nodiscard]] FileQuestions &Questions() { return m_questions; }
  [[nodiscard]] UnsavedChanges &GetUnsaved() { return m_unsaved; }

 Q_SIGNALS:
  /// One line about what was read or written.
  void Done(const QString &summary);
  /// One line about what went wrong, or what a file does not hold.
  void Failed(const QString &message);
  /// A layer is going to be written.
  void Saving(tessera::TMapLayer &layer);
  /// It was written.
  void Saved(tessera::TMapLayer &layer, const QString &fileName);
  /// A file that was opened or written whole.
  void Used(const QString &fileName);
  /// A file is being opened, so far up to a percentage.
  void Opening(const QString &fileName, int percent);
  /// No file is being opened any more.
  void Opened();

 private:
  void OpenNext();
  void TellOf(const std::vector<TLoadedFile> &loaded);
  void ShowAllAtFirst();
  [[nodiscard]] bool Settle(TMapLayer &layer);

  QWidget &m_window;
  TTessera &m_map;
  UnsavedChanges m_unsaved;
  FileQuestions m_questions;
  TLayerLoading m_loading;
  QStringList m_waiting;  ///< Files to be opened; the first is being loaded.
  bool m_isOpening = false;
  std::optional<TViewport> m_shown;  ///< The view of everything, as long as that is to be shown.
};

/// Asks for the name of a file to write, which gets the ending of the first filter when it has none; empty when the
/// person thinks better of it.
[[nodiscard]] QString AskForFileToWrite(QWidget *parent, const QString &title, const QString &proposal,
                                        const QStringList &filters);

/// Shows the busy cursor as long as it lives.
class WaitCursor {
 public:
  WaitCursor();
  ~WaitCursor();
  WaitCursor(const WaitCursor &) = delete;
  WaitCursor &operator=(const WaitCursor &) = delete;
};

}  // namespace tessera::apps
