#include <array>
#include <set>

#include "hosts/autocad/plot/entities.h"

namespace foliant::hosts::autocad {
namespace {

/// A window of a sheet onto the model.
struct View {
    Point centre;  ///< on the sheet
    double width = 0;
    double height = 0;
    Point target;
    Point from{0, 0, 1};      ///< the direction in which one who looks is, seen from the target
    Point middle;             ///< in the plane of the view
    double shown_height = 0;  ///< of the model
    double twist = 0;         ///< radians
    std::set<std::string_view> frozen;
};

/// Up to release 14 this stands among what programs add to entities: a list in which numbers have their place.
void read_old_view(Tags tags, View& view) {
    constexpr int text = 1000;
    constexpr int number = 1040;
    constexpr int place = 1010;
    const auto start =
        std::ranges::find_if(tags, [](const Tag& tag) { return tag.code == text && tag.value == "MVIEW"; });
    const Tags own(std::span(start, tags.end()));
    std::vector<double> numbers;
    std::vector<Point> places;
    for (std::size_t i = 0; i < own.size(); ++i) {
        if (own[i].code == number) numbers.push_back(number_of(own[i]));
        if (own[i].code == place) places.push_back(Tags(own.subspan(i)).point(place));
        if (own[i].code == 1003) view.frozen.insert(own[i].value);
    }
    if (places.size() < 2 || numbers.size() < 4) return;
    view.target = places[0];
    view.from = places[1];
    view.twist = radians(numbers[0]);
    view.shown_height = numbers[1];
    view.middle = {numbers[2], numbers[3], 0};
}

View view_of(const Entity& entity) {
    const Tags& tags = entity.tags;
    View view;
    view.centre = tags.point(10);
    view.width = tags.number(40);
    view.height = tags.number(41);
    if (!tags.has(45)) {
        read_old_view(tags, view);
        return view;
    }
    view.target = tags.point(17);
    view.from = tags.point(16, {0, 0, 1});
    view.middle = tags.point(12);
    view.middle.z = 0;
    view.shown_height = tags.number(45);
    view.twist = radians(tags.number(51));
    for (const Tag& tag : tags)
        if (tag.code == 331 || tag.code == 341) view.frozen.insert(tag.value);
    return view;
}

/// From the model to the sheet.
Matrix projection(const View& view) {
    const Matrix plane = Matrix::of_object(view.from);
    // The other way round: its axes are at right angles.
    const Matrix turned{{plane.x.x, plane.y.x, plane.z.x},
                        {plane.x.y, plane.y.y, plane.z.y},
                        {plane.x.z, plane.y.z, plane.z.z},
                        {}};
    const double size = view.height / view.shown_height;
    return Matrix::translation({view.centre.x, view.centre.y, 0}) * Matrix::scaling(size, size, size) *
           Matrix::translation(view.middle * -1) * Matrix::rotation(view.twist) * turned *
           Matrix::translation(view.target * -1);
}

bool is_switched_off(Tags tags) {
    constexpr unsigned off = 0x20000;
    return (static_cast<unsigned>(tags.integer(90)) & off) != 0 || tags.integer(68, 1) == 0;
}

/// The first one is the sheet itself.
bool is_sheet(Tags tags) {
    return tags.integer(69, 2) == 1;
}

}  // namespace

void paint_viewport(Painter& painter, const Entity& entity, const Context& context) {
    const View view = view_of(entity);
    if (context.depth > 0 || is_sheet(entity.tags) || is_switched_off(entity.tags)) return;
    if (!(view.width > 0) || !(view.height > 0)) return;
    const Point half{view.width / 2, view.height / 2, 0};
    const Point low = view.centre - half;
    const Point high = view.centre + half;
    Path frame;
    frame.add_polygon(std::array{low, Point{high.x, low.y, 0}, high, Point{low.x, high.y, 0}});
    const Block* const model = painter.drawing().block("*Model_Space");
    if (model != nullptr && view.shown_height > 0 && !painter.canvas().only_measures()) {
        Context inner = context;
        inner.place = context.place * projection(view);
        inner.frozen = &view.frozen;
        // Patterns look alike in every window, unless the drawing wants them to grow with the model.
        if (painter.drawing().variable("$PSLTSCALE", 1) == 0) inner.dash_unit = inner.place.scale();
        ++inner.depth;
        Path clip = frame;
        clip.transform(context.place);
        if (!clip.is_finite() || !painter.canvas().shows(clip.bounds())) return;
        painter.canvas().clip(clip);
        painter.paint(model->entities, inner);
        painter.canvas().unclip();
    }
    Ink ink = painter.ink_of(entity, context);
    ink.is_flat = false;
    painter.stroke(frame, ink, context);
}

}  // namespace foliant::hosts::autocad
