// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/detail/PictureRun.h>

#include <QTimer>

#include <memory>

namespace tessera::detail {

/// Makes the pictures of a map: at once, or, where TMapPainting wants it, in steps of a limited time. All of them run
/// in the thread of the user interface, for objects draw themselves by code of any program, and nobody need know of
/// threads; between two steps come the events that have arrived. A picture that became stale meanwhile is made from the
/// start.
class PictureSteps {
 public:
  PictureSteps(TTessera &map, ScreenPictures &pictures);

  /// Makes the picture whole, whatever was in the making. What is thrown goes on.
  void MakeAtOnce();
  /// Makes the picture from the start, in a first step if it is to be made in steps. Answers whether it is complete.
  /// What is thrown ends in the message sink.
  bool Begin();
  /// Whether there are steps to come.
  [[nodiscard]] bool IsAtWork() const { return m_run != nullptr; }
  /// Goes on, soon, with what had to wait for the end of a batch of updates.
  void Resume();
  /// Makes no further steps.
  void GiveUp() { m_run.reset(); }

 private:
  void Step();
  /// Draws what a step has time for, and answers whether the picture is complete. The map may be gone afterwards.
  bool Draw();

  TTessera &m_map;
  ScreenPictures &m_pictures;
  std::unique_ptr<PictureRun> m_run;  // none as long as it draws
  QTimer m_timer;
};

}  // namespace tessera::detail
