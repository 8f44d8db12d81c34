#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QVBoxLayout>

#include "ui/panel_contents.h"

class QGridLayout;

namespace quibbly {

class Label;

/// What the panel says above its commands: the heading, the figures, the roast, the footer and the status.
class PanelBody : public QVBoxLayout {
 public:
  /// Between its parts, in device-independent pixels.
  static constexpr int betweenParts = 10;

  PanelBody();

  /// Shows what changed, and leaves alone what did not: a selection in the roast stays. A new status is read out.
  void show(const PanelContents& contents);

 private:
  void addRoast();
  void showRows(const std::vector<PanelContents::Row>& rows);
  void showFooter(const std::vector<PanelContents::FooterLine>& lines);
  void showStatus(const std::optional<std::string>& status);

  Label* heading_;
  Label* collecting_;
  QWidget* rows_;
  QGridLayout* grid_;
  std::vector<std::pair<Label*, Label*>> rowLabels_;
  QWidget* roastArea_;
  Label* roast_;
  QVBoxLayout* footerLines_;
  std::vector<Label*> footer_;
  Label* status_;
};

}  // namespace quibbly
