// draw_icons DIRECTORY: draws the program's icons for desktops, from the drawings that its windows show.

#include <array>
#include <cstdio>
#include <string>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTextStream>

#include "ui/qt/artwork.h"
#include "ui/qt/widgets/smooth_rect.h"

namespace {

using namespace quibbly;

constexpr auto sides = std::to_array<int>({16, 22, 24, 32, 48, 64, 128, 256, 512});

/// The tile with round corners, and a little air around it.
QImage logo(int side) {
  constexpr double air = 0.04;
  constexpr double corner = 0.2;
  QImage drawn(side, side, QImage::Format_ARGB32_Premultiplied);
  drawn.fill(Qt::transparent);
  QPainter painter(&drawn);
  painter.setRenderHint(QPainter::Antialiasing);
  const double around = side * air;
  const QRectF tile = QRectF(drawn.rect()).adjusted(around, around, -around, -around);
  painter.setClipPath(smoothRect(tile, tile.width() * corner));
  artwork::paintLogo(painter, tile);
  return drawn;
}

/// As the attribute "d" of an SVG path in a square of this side.
QString pathData(const QPainterPath& path, double side) {
  QString data;
  QTextStream out(&data);
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element at = path.elementAt(i);
    constexpr const char* commands[] = {"M", "L", "C", ""};
    out << commands[at.type] << at.x * side << ' ' << at.y * side << ' ';
  }
  return data + "Z";
}

/// The flame in the one colour that the desktop gives it.
QString symbolic() {
  constexpr double side = 16;
  const QString flame = pathData(artwork::flame(), side) + ' ' + pathData(artwork::innerFlame(), side);
  return QString(
             "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"16\" height=\"16\" viewBox=\"0 0 16 16\">"
             "<path fill=\"#2e3436\" fill-rule=\"evenodd\" d=\"%1\"/></svg>\n")
      .arg(flame);
}

bool write(const QString& path, const QByteArray& content) {
  QFile file(path);
  return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
         file.write(content) == content.size() && file.flush();
}

bool drawAll(const QString& directory) {
  const QString name = "org.quibbly.Quibbly";
  for (const int side : sides) {
    const QString place = QString("%1/hicolor/%2x%2/apps/").arg(directory).arg(side);
    if (!QDir().mkpath(place) || !logo(side).save(place + name + ".png")) return false;
  }
  return write(directory + "/hicolor/symbolic/apps/" + name + "-symbolic.svg", symbolic().toUtf8());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    (void)std::fputs("usage: draw_icons DIRECTORY\n", stderr);
    return 2;
  }
  if (drawAll(argv[1])) return 0;
  (void)std::fprintf(stderr, "draw_icons: cannot write to %s\n", argv[1]);
  return 1;
}
