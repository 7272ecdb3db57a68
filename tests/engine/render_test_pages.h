#pragma once
// Pages built by hand for the renderer and printer tests, and the command-line tools that check them.
#include <array>
#include <cstdint>
#include <cstdio>
#include <sys/wait.h>
#include <utility>
#include <string>

#include "engine/page_model.h"

namespace lupin::engine::test {

constexpr std::int32_t kA4Width = 11906;   // 210 mm in twips
constexpr std::int32_t kA4Height = 16838;  // 297 mm

inline PageItem Label(std::string name, std::string text, std::int32_t left, std::int32_t top,
                      std::int32_t width, std::int32_t height, std::string font = "ＭＳ 明朝",
                      double size = 10.5) {
  PageItem item;
  item.section = "Detail";
  item.name = std::move(name);
  item.kind = ItemKind::Label;
  item.text = std::move(text);
  item.left = left;
  item.top = top;
  item.width = width;
  item.height = height;
  item.font.name = std::move(font);
  item.font.size = size;
  return item;
}

// A shape, line or barcode box.
inline PageItem Item(ItemKind kind, std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
  PageItem item = Label("", "", left, top, width, height);
  item.kind = kind;
  item.line_weight = 2;
  return item;
}

inline Page A4Page(int number = 1) {
  Page page;
  page.number = number;
  page.width = kA4Width;
  page.height = kA4Height;
  return page;
}

// Runs a command and gives its standard output and exit status.
inline std::pair<std::string, int> RunCommand(const std::string& command) {
  std::string out;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return {"", -1};
  std::array<char, 4096> buffer{};
  while (std::size_t n = fread(buffer.data(), 1, buffer.size(), pipe)) out.append(buffer.data(), n);
  const int status = pclose(pipe);
  return {out, WEXITSTATUS(status)};
}

}  // namespace lupin::engine::test
