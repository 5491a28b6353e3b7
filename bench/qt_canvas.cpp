#include "bench/qt_canvas.h"

#include <QBrush>
#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <map>
#include <utility>

namespace quenzel7::bench {
namespace {

/// A hatch as a repeated picture of 8 by 8 pixels.
QImage Tile(const Figure& figure) {
  QImage tile(8, 8, QImage::Format_RGB32);
  const auto rows = HatchRows(figure.hatch);
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) {
      const bool isInk = (rows[static_cast<std::size_t>(y)] >> (7 - x) & 1) != 0;
      tile.setPixel(x, y, 0xFF000000 | (isInk ? figure.fill : kPaper));
    }
  }
  return tile;
}

/// Texts need one, though nothing is shown.
void NeedApplication() {
  if (QGuiApplication::instance() != nullptr) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static char name[] = "bench";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  static QGuiApplication application(count, arguments);
}

class QtCanvas : public Canvas {
 public:
  QtCanvas(int width, int height) : image_(width, height, QImage::Format_RGB32) {
    NeedApplication();
    image_.fill(kPaper);
  }

  void Draw(std::span<const Figure> figures) override {
    QPainter painter(&image_);
    for (const Figure& figure : figures) DrawOne(painter, figure);
  }
  void Write(std::span<const TextLine> lines) override {
    QPainter painter(&image_);
    painter.setBackgroundMode(Qt::OpaqueMode);
    for (const TextLine& line : lines) {
      QFont font(kTextFace);
      font.setPixelSize(kTextSize);
      font.setStyleStrategy(QFont::NoAntialias);
      painter.setFont(font);
      painter.setPen(QColor(QRgb{line.ink}));
      painter.setBackground(QColor(QRgb{line.paper}));
      painter.drawText(line.left, line.top + painter.fontMetrics().ascent(),
                       QString::fromLatin1(line.text.data(), static_cast<int>(line.text.size())));
    }
  }

  void Hold(const KeyedPicture& picture) override {
    held_ = QImage(picture.width, picture.height, QImage::Format_RGB32);
    for (int y = 0; y < picture.height; ++y) {
      const auto from = picture.pixels.begin() + std::ptrdiff_t{y} * picture.width;
      std::transform(from, from + picture.width, reinterpret_cast<std::uint32_t*>(held_.scanLine(y)),
                     [](std::uint32_t color) { return 0xFF000000 | color; });
    }
    key_ = 0xFF000000 | picture.key;
    prepared_ = Cutout();
  }
  void PaintThroughMask(int left, int top) override {
    QImage cutout = held_;
    cutout.setAlphaChannel(held_.createMaskFromColor(key_, Qt::MaskOutColor));
    QPainter(&image_).drawImage(left, top, cutout);
  }
  void PaintWithAlpha(int left, int top) override { QPainter(&image_).drawImage(left, top, Cutout()); }
  void PaintPrepared(int left, int top) override { QPainter(&image_).drawImage(left, top, prepared_); }

  std::span<const std::uint32_t> Pixels() override {
    return {reinterpret_cast<const std::uint32_t*>(image_.constBits()),
            static_cast<std::size_t>(image_.width()) * static_cast<std::size_t>(image_.height())};
  }

 private:
  /// The picture held, with its pixels of the key colour let through.
  QImage Cutout() const {
    QImage cutout = held_.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const int count = cutout.width() * cutout.height();
    auto* const pixels = reinterpret_cast<std::uint32_t*>(cutout.bits());
    for (int i = 0; i < count; ++i) pixels[i] = pixels[i] == key_ ? 0 : pixels[i];
    return cutout;
  }

  QBrush BrushOf(const Figure& figure) {
    if (figure.isHollow) return QBrush(Qt::NoBrush);
    if (figure.hatch == Figure::kNoHatch) return QBrush(QColor(QRgb{figure.fill}));
    // Making a pattern takes long here; a program would keep it.
    QBrush& brush = hatched_[{figure.hatch, figure.fill}];
    if (brush.style() == Qt::NoBrush) brush.setTextureImage(Tile(figure));
    return brush;
  }

  void DrawOne(QPainter& painter, const Figure& figure) {
    const int width = figure.right - figure.left, height = figure.bottom - figure.top;
    if (figure.kind == Figure::Kind::kFill) {
      painter.fillRect(figure.left, figure.top, width, height, BrushOf(figure));
      return;
    }
    const auto cap = figure.kind == Figure::Kind::kFlatLine ? Qt::FlatCap : Qt::RoundCap;
    painter.setPen(QPen(QColor(QRgb{figure.line}), figure.penWidth, Qt::SolidLine, cap, Qt::RoundJoin));
    painter.setBrush(BrushOf(figure));
    const QRect middle(figure.left, figure.top, width - 1, height - 1);
    switch (figure.kind) {
      case Figure::Kind::kFill:
      case Figure::Kind::kRectangle:
        painter.drawRect(middle);
        break;
      case Figure::Kind::kEllipse:
        painter.drawEllipse(middle);
        break;
      case Figure::Kind::kRoundRect:
        painter.drawRoundedRect(middle, (figure.CornerWidth() - 1) / 2.0, (figure.CornerHeight() - 1) / 2.0);
        break;
      case Figure::Kind::kLine:
      case Figure::Kind::kFlatLine:
        painter.drawLine(figure.left, figure.top, figure.right, figure.bottom);
        break;
      case Figure::Kind::kArrow: {
        std::array<QPoint, 7> points;
        const auto corners = figure.Corners();
        for (std::size_t i = 0; i < corners.size(); ++i) points[i] = QPoint(corners[i].x, corners[i].y);
        painter.drawPolygon(points.data(), static_cast<int>(points.size()), Qt::OddEvenFill);
        break;
      }
    }
  }

  QImage image_;
  /// By hatch and colour.
  std::map<std::pair<int, std::uint32_t>, QBrush> hatched_;
  QImage held_, prepared_;
  std::uint32_t key_ = 0;
};

}  // namespace

std::unique_ptr<Canvas> MakeQtCanvas(int width, int height) {
  return std::make_unique<QtCanvas>(width, height);
}

}  // namespace quenzel7::bench
