#include <array>
#include <optional>

#include "hosts/autocad/plot/entities.h"

namespace foliant::hosts::autocad {
namespace {

/// Lines at one angle, one beside the other.
struct Family {
    double angle = 0;  ///< radians
    Point base;
    Point offset;  ///< from each line to the next
    Linetype dashes;
};

struct Hatch {
    Path boundary;
    std::vector<Family> families;
};

/// A hatch's groups mean something only in their order.
class HatchReader {
  public:
    explicit HatchReader(Tags tags) : tags_(tags), elevation_(tags.number(30)) {}

    Hatch read() {
        const int paths = count_of(91);
        for (int i = 0; i < paths && at_ < tags_.size(); ++i)
            read_path();
        const int families = count_of(78);
        for (int i = 0; i < families && at_ < tags_.size(); ++i)
            read_family();
        return std::move(hatch_);
    }

  private:
    /// Goes behind the next group of that code.
    const Tag* next(int code) {
        while (at_ < tags_.size())
            if (tags_[at_++].code == code) return &tags_[at_ - 1];
        return nullptr;
    }
    /// The same, but only if it comes right here.
    std::optional<double> here(int code) {
        if (at_ >= tags_.size() || tags_[at_].code != code) return std::nullopt;
        return number_of(tags_[at_++]);
    }
    double number(int code) {
        const Tag* const tag = next(code);
        return tag == nullptr ? std::nan("") : number_of(*tag);
    }
    int count_of(int code) {
        const Tag* const tag = next(code);
        return tag == nullptr ? 0 : integer_of(*tag);
    }
    Point point(int code) {
        const double x = number(code);
        return {x, number(code + 10), elevation_};
    }

    void read_path() {
        constexpr unsigned is_polyline = 2;
        if ((static_cast<unsigned>(count_of(92)) & is_polyline) != 0) return read_polyline();
        const int edges = count_of(93);
        Path path;
        for (int i = 0; i < edges && at_ < tags_.size(); ++i)
            read_edge(path);
        path.close();
        append(path);
    }

    void append(const Path& path) {
        auto point = path.points().begin();
        for (const Path::Step step : path.steps()) {
            if (step == Path::Step::close) {
                hatch_.boundary.close();
            } else if (step == Path::Step::curve) {
                hatch_.boundary.curve_to(point[0], point[1], point[2]);
                point += 3;
            } else {
                step == Path::Step::move ? hatch_.boundary.move_to(*point) : hatch_.boundary.line_to(*point);
                ++point;
            }
        }
    }

    void read_polyline() {
        next(72);
        next(73);
        const int count = count_of(93);
        Path path;
        double bulge = 0;
        Point first;
        for (int i = 0; i < count && at_ < tags_.size(); ++i) {
            const Point place = point(10);
            if (i == 0)
                path.move_to(first = place);
            else
                path.bulge_to(place, bulge);
            bulge = here(42).value_or(0);
        }
        path.bulge_to(first, bulge);
        path.close();
        append(path);
    }

    void read_edge(Path& path) {
        constexpr int line = 1;
        constexpr int arc = 2;
        constexpr int ellipse = 3;
        switch (count_of(72)) {
            case line:
                path.line_to(point(10));
                path.line_to(point(11));
                break;
            case arc: {
                const Point centre = point(10);
                const double radius = number(40);
                add_turn(path, centre, {radius, 0, 0}, {0, radius, 0});
                break;
            }
            case ellipse: {
                const Point centre = point(10);
                Point major = point(11);
                major.z = 0;
                const double ratio = number(40);
                add_turn(path, centre, major, Point{-major.y, major.x, 0} * ratio);
                break;
            }
            default:
                read_spline(path);
                break;
        }
    }

    /// Angles of a piece that runs to the right are told to the right.
    void add_turn(Path& path, Point centre, Point x, Point y) {
        double from = radians(number(50));
        double to = radians(number(51));
        const bool runs_left = count_of(73) != 0;
        if (to < from) to += 2 * std::numbers::pi;
        path.add_arc(centre, x, runs_left ? y : y * -1, from, to, true);
    }

    void read_spline(Path& path) {
        Spline spline{.degree = count_of(94)};
        next(73);
        next(74);
        const int knots = count_of(95);
        const int controls = count_of(96);
        for (int i = 0; i < knots && at_ < tags_.size(); ++i)
            spline.knots.push_back(number(40));
        for (int i = 0; i < controls && at_ < tags_.size(); ++i) {
            spline.controls.push_back(point(10));
            if (const auto weight = here(42)) spline.weights.push_back(*weight);
        }
        const Path curve = spline.path();
        for (const Point p : curve.points())
            path.line_to(p);
    }

    void read_family() {
        Family family;
        family.angle = radians(number(53));
        family.base = {number(43), number(44), elevation_};
        family.offset = {number(45), number(46), 0};
        const int dashes = count_of(79);
        for (int i = 0; i < dashes && at_ < tags_.size(); ++i)
            family.dashes.push_back(number(49));
        hatch_.families.push_back(std::move(family));
    }

    Tags tags_;
    std::size_t at_ = 0;
    double elevation_;
    Hatch hatch_;
};

/// The lines of a family that go through a box; nothing when they are too many to be seen apart.
std::optional<Path> lines_through(const Family& family, const Box& box, double points_per_unit) {
    constexpr double nearest = 0.15;  // points
    constexpr double most = 20'000;
    const Point along{std::cos(family.angle), std::sin(family.angle), 0};
    const Point across{-along.y, along.x, 0};
    const double step = dot(family.offset, across);
    const double shift = dot(family.offset, along);
    if (!(std::abs(step) * points_per_unit > nearest)) return std::nullopt;
    Box room;  // along the lines, and across them, seen from the base
    for (const double x : {box.left, box.right})
        for (const double y : {box.bottom, box.top}) {
            const Point corner = Point{x, y, family.base.z} - family.base;
            room.add({dot(corner, along), dot(corner, across) / step, 0});
        }
    if (!(room.height() < most)) return std::nullopt;
    double period = 0;
    for (const double dash : family.dashes)
        period += std::abs(dash);
    Path path;
    for (double i = std::ceil(room.bottom); i <= room.top; ++i) {
        // Each line begins with a whole pattern.
        double from = room.left - shift * i;
        if (period > 0) from = std::floor(from / period) * period;
        const Point begin = family.base + family.offset * i;
        path.move_to(begin + along * from);
        path.line_to(begin + along * (room.right - shift * i));
    }
    return path;
}

void draw_lines(Painter& painter, const Hatch& hatch, const Ink& line, const Ink& area,
                const Context& context) {
    const Box box = hatch.boundary.bounds();
    const double unit = context.place.scale();
    Path clip = hatch.boundary;
    clip.transform(context.place);
    if (!clip.is_finite() || !painter.canvas().shows(clip.bounds())) return;
    painter.canvas().clip(clip);
    for (const Family& family : hatch.families) {
        const auto lines = lines_through(family, box, unit);
        if (!lines) {
            painter.canvas().fill(clip, area);
            break;
        }
        painter.spend(lines->size() / 8);
        Ink ink = line;
        ink.dashes = dashes_on_paper(family.dashes, unit, line.width);
        painter.stroke(*lines, ink, context);
    }
    painter.canvas().unclip();
}

/// A gradient looks like the mean of its colours.
std::optional<Colour> gradient_of(Tags tags) {
    if (tags.integer(450) == 0) return std::nullopt;
    Colour sum;
    int count = 0;
    for (const Tag& tag : tags.subspan(static_cast<std::size_t>(tags.find(450) - tags.data()))) {
        if (tag.code != 421) continue;
        const Colour one = Colour::of_bytes(static_cast<std::uint32_t>(integer_of(tag)));
        sum = {sum.red + one.red, sum.green + one.green, sum.blue + one.blue};
        ++count;
    }
    if (count == 0) return std::nullopt;
    return Colour{sum.red / count, sum.green / count, sum.blue / count};
}

}  // namespace

void paint_hatch(Painter& painter, const Entity& entity, const Context& context) {
    const Hatch hatch = HatchReader(entity.tags).read();
    const Context own = in_object(context, entity);
    Ink area = painter.fill_of(entity, context);
    if (const auto colour = gradient_of(entity.tags)) area.colour = *colour;
    const bool is_solid = entity.tags.integer(70) == 1;
    if (is_solid || painter.canvas().only_measures()) return painter.fill(hatch.boundary, area, own);
    Ink line = painter.ink_of(entity, context);
    line.dashes.clear();
    // A pattern that is only named: where it is can be shown.
    if (hatch.families.empty()) return painter.stroke(hatch.boundary, line, own);
    draw_lines(painter, hatch, line, area, own);
}

}  // namespace foliant::hosts::autocad
