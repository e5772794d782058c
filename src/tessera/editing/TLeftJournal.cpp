// SPDX-License-Identifier: MIT
#include <tessera/editing/TLeftJournal.h>
#include <tessera/editing/detail/JournalFile.h>
#include <tessera/editing/detail/JournaledLayer.h>

namespace tessera {

using detail::JournaledLayer;

TLeftJournal::TLeftJournal(std::unique_ptr<detail::JournalFile> file)
    : m_file(std::move(file)), m_layers(JournaledLayer::ReadFrom(m_file->Read())) {}

TLeftJournal::TLeftJournal(TLeftJournal &&) noexcept = default;
TLeftJournal &TLeftJournal::operator=(TLeftJournal &&) noexcept = default;
TLeftJournal::~TLeftJournal() = default;

std::vector<TLeftJournal> TLeftJournal::FindIn(const QString &folder) {
  std::vector<TLeftJournal> left;
  for (auto &file : detail::JournalFile::FindLeft(folder)) {
    TLeftJournal journal(std::move(file));
    if (journal.m_layers.empty()) {
      journal.Discard();
    } else {
      left.push_back(std::move(journal));
    }
  }
  return left;
}

QStringList TLeftJournal::GetLayerNames() const {
  QStringList names;
  for (const auto &layer : m_layers) names << layer->name;
  return names;
}

QStringList TLeftJournal::RestoreInto(TMapLayers &layers) const {
  QStringList problems;
  for (const auto &layer : m_layers) {
    const QString problem = layer->RestoreInto(layers);
    if (!problem.isEmpty()) problems << problem;
  }
  return problems;
}

void TLeftJournal::Discard() {
  m_file->Remove();
}

}  // namespace tessera
