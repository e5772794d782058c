// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessera::mitab {

/// A style text of OGR, such as `PEN(w:1px,c:#ff0000);BRUSH(fc:#00ff00)`, cut into its tools and their settings.
class StyleText {
 public:
  explicit StyleText(std::string_view text);

  [[nodiscard]] bool HasTool(std::string_view tool) const { return Find(tool) != nullptr; }
  /// A setting of a tool, without its quotes; empty when it is not there.
  [[nodiscard]] std::string_view Setting(std::string_view tool, std::string_view key) const;
  [[nodiscard]] bool HasSetting(std::string_view tool, std::string_view key) const;
  /// A colour such as #ff0000, or `otherwise`.
  [[nodiscard]] int Color(std::string_view tool, std::string_view key, int otherwise) const;
  /// The number that a setting begins with, 0 without one.
  [[nodiscard]] double Number(std::string_view tool, std::string_view key) const;

 private:
  struct Entry {
    std::string key;
    std::string value;
  };
  struct Tool {
    std::string name;
    std::vector<Entry> entries;
  };
  [[nodiscard]] const Tool *Find(std::string_view tool) const;
  [[nodiscard]] const Entry *Find(std::string_view tool, std::string_view key) const;
  static Tool ReadTool(std::string_view &rest);
  static std::string ReadValue(std::string_view &rest);

  std::vector<Tool> m_tools;
};

/// `number` behind `prefix` in an id such as "mapinfo-pen-2,ogr-pen-0"; `otherwise` when it is not there. `rest` gets
/// what follows the number.
[[nodiscard]] int NumberInId(std::string_view id, std::string_view prefix, int otherwise,
                             std::string_view *rest = nullptr);

/// In double quotes, with those within escaped.
[[nodiscard]] std::string Quoted(std::string_view text);

}  // namespace tessera::mitab
