// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/MessageSink.h>
#include <tessera/map/TTessera.h>

#include <QMainWindow>

#include <optional>

namespace tessera::apps {

class EditRecovery;
class EditorTools;
class FindBar;
class LayerFiles;
class LayerDocks;
class MapDecorations;
class MessageBar;
class RecentFiles;
class StatusPanel;
class UnitsMenu;

/// The editor's window: a map with what it takes to open, look at, draw, change and save its layers. Messages of the
/// library appear in a bar above the map as long as the window lives; it is the only one of its kind in a process.
///
/// Files can be dropped on it. The formats are those that the process has providers of. Where it stood, and the files
/// that were used last, are kept in the application's settings.
class TEditorWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit TEditorWindow(QWidget *parent = nullptr);
  ~TEditorWindow() override;

  [[nodiscard]] TTessera &GetMap() const { return *m_map; }
  /// Opening, saving and closing layers, with the questions that go with it.
  [[nodiscard]] LayerFiles &GetFiles() const { return *m_files; }
  /// What keeps edits safe from a sudden end.
  [[nodiscard]] EditRecovery &GetRecovery() const { return *m_recovery; }
  [[nodiscard]] EditorTools &GetTools() const { return *m_tools; }
  [[nodiscard]] MessageBar &GetMessageBar() const { return *m_messageBar; }
  /// The edits of the map's layers and objects; clean when all is saved.
  [[nodiscard]] QUndoStack &GetUndoStack() const { return *m_undoStack; }
  [[nodiscard]] StatusPanel &GetStatusPanel() const { return *m_statusPanel; }
  [[nodiscard]] LayerDocks &GetDocks() const { return *m_docks; }
  [[nodiscard]] FindBar &GetFindBar() const { return *m_findBar; }
  [[nodiscard]] MapDecorations &GetDecorations() const { return *m_decorations; }
  /// How lengths and areas are told.
  [[nodiscard]] UnitsMenu &GetUnits() const { return *m_units; }
  /// The layer that the commands are about: the one chosen in the list, or the top one; none without layers.
  [[nodiscard]] TMapLayer *GetCurrentLayer() const;

  /// Makes an empty, editable layer on top.
  TMapLayer *AddLayer(const QString &name, const TDataFields &fields);
  /// Deletes the selected objects of the editable layer; those of others stay, which is told.
  void DeleteSelected();
  /// Writes the map as it is shown; a failure is told in the message bar. True on success.
  bool ExportPicture(const QString &fileName);
  void CopyPicture();
  /// Puts the selected objects on the clipboard; all of them, whatever layer they are in.
  void Copy();
  /// Splits the line of the vertex that is active in the vertex tool; without one, a message says so.
  void SplitAtVertex();
  /// Puts objects from the clipboard into the editable layer; without one, a message says so.
  void Paste();

 protected:
  void closeEvent(QCloseEvent *event) override;
  void dragEnterEvent(QDragEnterEvent *event) override;
  void dropEvent(QDropEvent *event) override;

 private:
  QWidget *MakeCentralWidget();
  void SetUpMap();
  void MakeMenus();
  void MakeFileMenu();
  void MakeEditMenu();
  void MakeObjectMenu();
  void MakeViewMenu();
  void MakeWheelMenu(QMenu &view);
  void MakeLayerMenu();
  void MakeToolMenu();
  void MakeHelpMenu();
  void MakeSnapMenu(QMenu &tools);
  void AskForGrid();
  /// Runs a command on the current layer; without one, a message says so.
  void WithLayer(const std::function<void(TMapLayer &layer)> &command);
  void FollowUnsaved();
  void FollowUnits();
  /// Changes the current layer, as a step that can be undone.
  void ChangeLayer(const QString &text, const std::function<void(TMapLayer &layer)> &change);
  /// The selected objects of the editable layer. That others stay as they are is told.
  std::vector<TCustomMapObject *> TakeEditableSelection();
  /// An entry for the selected objects.
  QAction &AddObjectAction(QMenu &menu, const QString &text, const QKeySequence &key, const std::function<void()> &run);
  void MoveLayer(int by);
  void AskForNewLayer();
  void AskWhereToExportPicture();
  struct NumberRange {
    double low;
    double high;
    int decimals;
  };
  /// None when the person gives it up.
  std::optional<double> AskForNumber(const QString &title, const QString &label, double value,
                                     const NumberRange &range);
  void AskForRotation();
  void AskForOptions();

  TTessera *m_map;
  QUndoStack *m_undoStack;
  MessageBar *m_messageBar;
  LayerFiles *m_files;
  EditRecovery *m_recovery;
  EditorTools *m_tools;
  LayerDocks *m_docks;
  StatusPanel *m_statusPanel;
  FindBar *m_findBar;
  RecentFiles *m_recent;
  UnitsMenu *m_units;
  MapDecorations *m_decorations = nullptr;
  TMessageSink m_sinkBefore;
};

}  // namespace tessera::apps
