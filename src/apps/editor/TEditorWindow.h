// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/MessageSink.h>
#include <tessera/map/TTessera.h>

#include <QMainWindow>

namespace tessera::apps {

class MessageBar;
class StatusPanel;

/// Asks the person whether to go on although the things listed would be lost.
using TLossQuestion = std::function<bool(const QString &question, const QStringList &losses)>;

/// The editor's window: a map with what it takes to open, look at and save its layers. Messages of the library appear
/// in a bar above the map as long as the window lives; it is the only one of its kind in a process.
///
/// Files can be dropped on it. The formats are those that the process has providers of.
class TEditorWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit TEditorWindow(QWidget *parent = nullptr);
  ~TEditorWindow() override;

  /// Loads files on top of what is open, the first lowest, and shows everything if nothing was open before. What cannot
  /// be read is told in the message bar.
  void OpenFiles(const QStringList &fileNames);
  /// Writes a layer; a failure, and what the file does not hold, is told in the message bar. Where the layer would
  /// replace its own source and something would be gone for good, it asks first. True on success.
  bool SaveLayer(TMapLayer &layer, const QString &fileName);
  /// The file that a dialog proposes for a layer: its own, or, if something would be gone then, a copy beside it.
  [[nodiscard]] static QString ProposeFileFor(const TMapLayer &layer);
  /// Replaces the way of asking, which is a dialog at first.
  void SetLossQuestion(TLossQuestion question) { m_askAboutLosses = std::move(question); }
  /// Writes the map as it is shown; a failure is told in the message bar. True on success.
  bool ExportPicture(const QString &fileName);
  /// Shows all layers whole, at zoom 1, in the size that the map has now.
  void FitAll();

  [[nodiscard]] TTessera &GetMap() const { return *m_map; }
  [[nodiscard]] MessageBar &GetMessageBar() const { return *m_messageBar; }
  [[nodiscard]] StatusPanel &GetStatusPanel() const { return *m_statusPanel; }

 protected:
  void dragEnterEvent(QDragEnterEvent *event) override;
  void dropEvent(QDropEvent *event) override;

 private:
  QWidget *MakeCentralWidget();
  void MakeMenus();
  /// Tells that a file was written, or, if `error` is not empty, why not. True without an error.
  bool ReportWriting(const QString &fileName, const QString &error);
  void AskForFilesToOpen();
  void AskWhereToSaveLayer();
  void AskWhereToExportPicture();
  [[nodiscard]] TMapLayer *AskForLayer();

  TTessera *m_map;
  MessageBar *m_messageBar;
  StatusPanel *m_statusPanel;
  TMessageSink m_sinkBefore;
  TLossQuestion m_askAboutLosses;
};

}  // namespace tessera::apps
