// SPDX-License-Identifier: MIT
#pragma once

#include "../support/FakeMapHost.h"

#include <QString>

#include <vector>

namespace tessera::test {

/// A map that writes down what a format provider does to it.
class TLoadingMapHost final : public TFakeMapHost {
 public:
  std::vector<QString> calls;  ///< The update protocol and the beginning and end of progress, in order.
  std::vector<int> progress;   ///< Every position shown.
  int addedObjects = 0;        ///< How often mdlAddObject was sent.
  int addedOutsideUpdate = 0;  ///< Those of them that came outside of BeginUpdate and EndUpdate.

  void BeginUpdate() override {
    isInUpdate = true;
    calls.push_back(QStringLiteral("BeginUpdate"));
  }
  void EndUpdate(bool update) override {
    isInUpdate = false;
    calls.push_back(QStringLiteral("EndUpdate ") + (update ? QStringLiteral("true") : QStringLiteral("false")));
  }
  void SetIsLoading(bool isLoading) override {
    calls.push_back(QStringLiteral("SetIsLoading ") + (isLoading ? QStringLiteral("true") : QStringLiteral("false")));
  }
  void TraceMapEvent(TMapDataLinkEvent event, TObject * /*sender*/) override {
    if (event != mdlAddObject) return;
    ++addedObjects;
    if (!isInUpdate) ++addedOutsideUpdate;
  }
  void StartProgress(int min, int max, const QString &caption) override {
    calls.push_back(QStringLiteral("StartProgress %1 %2 %3").arg(min).arg(max).arg(caption));
  }
  void ShowProgress(int position) override { progress.push_back(position); }
  void StopProgress() override { calls.push_back(QStringLiteral("StopProgress")); }
};

}  // namespace tessera::test
