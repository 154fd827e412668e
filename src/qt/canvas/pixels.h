#pragma once

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QRectF>
#include <cstdint>

namespace orvent::qt {

/// Writes boxes and lines straight into an image. A picture holds tens of thousands of them, and a general painter
/// would take several frames.
class Pixels {
  public:
    /// `origin` is the place of the image's top left corner, in pixels; `ratio` is device pixels per pixel. The image
    /// holds RGB32 and must outlive this.
    Pixels(QImage& image, QPointF origin, double ratio);

    /// At least one device pixel wide and high.
    void fill(const QRectF& box, QRgb colour);
    /// The outline of a box: `width` pixels inwards from its sides.
    void frame(const QRectF& box, double width, QRgb colour);
    /// A line of one device pixel that passes through the image or near it. Which pixels it takes does not depend on
    /// which part of it the image shows.
    void line(const QLineF& line, QRgb colour);
    /// The same, with smooth edges, `width` pixels wide and as much longer.
    void smoothLine(const QLineF& line, double width, QRgb colour);

  private:
    /// A line along its longer direction: one step for each device pixel, and less than that across.
    struct Course {
        double from, to;        ///< along, in device pixels; `from` is the lesser
        int first, last;        ///< the steps that the image shows
        std::int64_t at, step;  ///< across, at `first` and for each further step, with 32 bits behind the point
        unsigned room;          ///< pixels across
        qsizetype nextAlong, nextAcross;
    };

    /// Steps of a course; none when `last` is the lesser.
    struct Steps {
        int first = 0;
        int last = -1;
    };

    /// A smooth line paints a strip across at each step; where a strip ends within a pixel, it covers a part of it.
    struct Strips {
        std::int64_t extent, above;  ///< whole length, and the part before the course, in 256ths of a device pixel
        QRgb colour;
        std::uint64_t channels;  ///< the colour, spread
    };

    Course courseOf(const QLineF& line, double longer) const;
    /// The steps whose place across lies from `from` to `to`, with 32 bits behind the point.
    static Steps stepsAt(const Course& course, std::int64_t from, std::int64_t to);
    static std::int64_t startOf(const Course& course, const Strips& strips, int step);
    void paintParts(const Course& course, const Strips& strips, Steps steps);
    void paintWhole(const Course& course, const Strips& strips, Steps steps);

    QRgb* bits_;
    qsizetype stride_;
    int width_;
    int height_;
    QPointF origin_;
    double ratio_;
};

}  // namespace orvent::qt
