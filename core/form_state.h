// The main form as data: panels, buttons, status panels and labels, kept screen-free.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

namespace tavimor {

struct ButtonState {
  bool enabled = true;
  bool visible = true;
  std::string tag;
};

struct FormState {
  // What the work item is: "number", "fraction", "sum of fractions", "expression", "equation",
  // "set of equations", or empty before the first item.
  std::string item_kind;
  // The visible button panel, 0 to 4, or -1 before the first item.
  int visible_panel = -1;
  // The caption of panel 1: "Expression", "Left Side" or "Right Side". It is also the state that
  // says which side the expression buttons work on.
  std::string panel1_caption = "Expression";
  // Extra height of panel 1 while a side is worked on (twips).
  int panel1_extra_height = 0;
  // Buttons by name (cmdSimplify, cmdFactor, ...); a name not present is enabled and visible.
  std::map<std::string, ButtonState> buttons;
  std::string focus;  // the button with the focus
  std::array<std::string, 9> status_panels{};
  std::string diagnostics;
  std::string caption;
  std::vector<std::string> equation_box_items;  // the list of cmbEqn
  int equation_box_selected = -1;               // its selected entry, -1 for none
  std::string equation_box_text;

  ButtonState& Button(const std::string& name) { return buttons[name]; }
  bool Enabled(const std::string& name) const {
    const auto it = buttons.find(name);
    return it == buttons.end() || it->second.enabled;
  }
  bool Visible(const std::string& name) const {
    const auto it = buttons.find(name);
    return it == buttons.end() || it->second.visible;
  }
};

}  // namespace tavimor
