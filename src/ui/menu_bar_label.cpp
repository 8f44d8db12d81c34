#include "ui/menu_bar_label.h"

namespace quibbly {

MenuBarLabel MenuBarLabel::of(const PanelState& state) {
  MenuBarLabel label{.mood = state.mood, .thermal = std::nullopt};
  if (state.latestSnapshot) label.thermal = state.latestSnapshot->thermalState;
  return label;
}

MenuBarLabel::Symbol MenuBarLabel::symbol() const {
  // Heat outdoes every mood.
  if (thermal == RoastThermalState::serious || thermal == RoastThermalState::critical) return Symbol::flameFill;
  switch (mood.label) {
    case MacMood::Label::judgingYou:
    case MacMood::Label::preparingComplaint:
    case MacMood::Label::requestingNewOwner:
      return Symbol::exclamationmarkTriangleFill;
    case MacMood::Label::concerned:
    case MacMood::Label::disappointed:
      return Symbol::flameFill;
    case MacMood::Label::proud:
      break;
  }
  return Symbol::flame;
}

std::string MenuBarLabel::accessibilityLabel() const { return "quibbly — " + std::string(displayText(mood.label)); }

}  // namespace quibbly
