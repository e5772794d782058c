// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace tessera::soak {

class Person;

/// Something that a person does with the editor.
struct Deed {
  const char *name;
  int weight;  ///< How often it is done, compared with the others.
  void (*run)(Person &person);
};

/// With mouse and keys on the map, and with the menus that are about it.
[[nodiscard]] std::span<const Deed> MapDeeds();
/// With the panels, bars and the look of the window.
[[nodiscard]] std::span<const Deed> PanelDeeds();
/// With files.
[[nodiscard]] std::span<const Deed> FileDeeds();

/// Writes the files that are opened to the person's folder.
void WriteFirstFiles(Person &person);
/// Closes all layers without saving and forgets all steps and copies, as if the editor had just been started.
void StartAfresh(Person &person);

}  // namespace tessera::soak
