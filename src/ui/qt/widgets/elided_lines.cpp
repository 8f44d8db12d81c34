#include "ui/qt/widgets/elided_lines.h"

#include <QFontMetrics>
#include <QStringList>
#include <QTextLayout>

namespace quibbly {

QString elidedLines(const QString& text, const QFont& font, int width, int mostLines) {
  QString wrapped = text;
  wrapped.replace('\n', QChar::LineSeparator);
  QTextLayout layout(wrapped, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  QStringList lines;
  while (lines.size() < mostLines) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(width);
    const int end = line.textStart() + line.textLength();
    const bool isCut = lines.size() + 1 == mostLines && end < wrapped.size();
    QString shown = wrapped.mid(line.textStart(), isCut ? -1 : line.textLength());
    shown.replace(QChar::LineSeparator, ' ');
    lines.append(isCut ? QFontMetrics(font).elidedText(shown, Qt::ElideRight, width) : shown.trimmed());
  }
  layout.endLayout();
  return lines.join('\n');
}

}  // namespace quibbly
