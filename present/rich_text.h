// What the work space and the hint box are made of: runs of formatted text, line ends, pictures.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "present/display_list.h"

namespace tavimor {

// The 16 standard colours of the platform, by number, as 0xRRGGBB.
inline constexpr std::array<std::uint32_t, 16> kQBColors = {
    0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
    0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};

// A format string such as "TFF12": bold, italic, underline as T or F, then a colour number.
struct TextFormat {
  bool bold = false;
  bool italic = false;
  bool underline = false;
  int colour = 0;
  float size = 12.0f;  // points

  // Reads "TFF12"; a malformed string gives plain black.
  static TextFormat Parse(const std::string& format, float size);
  std::uint32_t Rgb() const { return kQBColors[static_cast<std::size_t>(colour & 15)]; }
};

// Relation codes: what stands between the two sides of a piece of mathematics.
inline constexpr int kRelationNone = 0;  // an expression
inline constexpr int kRelationEquals = 1;
inline constexpr int kRelationLess = 2;
inline constexpr int kRelationGreater = 3;
inline constexpr int kRelationLessOrEqual = 4;
inline constexpr int kRelationGreaterOrEqual = 5;
inline constexpr int kRelationArrow = 6;  // "->": a step from the left to the right
inline constexpr bool IsRelationCode(int code) {
  return code >= kRelationEquals && code <= kRelationArrow;
}

struct TextSides;  // present/text_picture.h

// A typeset piece of mathematics: the relation code (0 for an expression) and the texts, the
// drawing of the typesetter, and the offset that puts its baseline on the text's baseline.
struct Picture {
  int relation = kRelationNone;
  std::string left;
  std::string right;
  Drawing drawing;
  float baseline_offset = 0.0f;  // set by AlignPicture: height - baseline - 0.35 * font height
  // For a front end that paints no drawings: the sides already set as text, where the typesetter
  // could set them; the rest is set when the picture is shown.
  std::shared_ptr<const TextSides> text;
  // A small graph rather than typeset mathematics: its lines as characters, for a front end that
  // paints no drawings (empty for mathematics).
  std::vector<std::string> sketch;

  // The mathematics as text, as the work space keeps it hidden behind the picture.
  std::string Mathematics() const;
  // The picture's tag: the baseline, ";", the mathematics.
  std::string Tag() const;
};

enum class RunKind { Text, LineEnd, Tab, Picture };

struct RichRun {
  RunKind kind = RunKind::Text;
  std::string text;  // a Text run
  TextFormat format;
  Picture picture;  // a Picture run
};

using RichText = std::vector<RichRun>;

// The plain text of rich text: line ends as "\n", tabs as "\t", each picture as "@", its
// mathematics, "@" (the hidden text the work space keeps).
std::string PlainText(const RichText& text);

}  // namespace tavimor
