#pragma once

#include "hosts/autocad/plot/painter.h"

/// How each kind of entity is drawn.
namespace foliant::hosts::autocad {

void paint_line(Painter& painter, const Entity& entity, const Context& context);
void paint_endless_line(Painter& painter, const Entity& entity, const Context& context);
void paint_arc(Painter& painter, const Entity& entity, const Context& context);  ///< circles, too
void paint_ellipse(Painter& painter, const Entity& entity, const Context& context);
void paint_spline(Painter& painter, const Entity& entity, const Context& context);
void paint_light_polyline(Painter& painter, const Entity& entity, const Context& context);
void paint_polyline(Painter& painter, const Entity& entity, const Context& context);  ///< meshes, too
void paint_multiple_line(Painter& painter, const Entity& entity, const Context& context);
void paint_point(Painter& painter, const Entity& entity, const Context& context);
void paint_solid(Painter& painter, const Entity& entity, const Context& context);
void paint_face(Painter& painter, const Entity& entity, const Context& context);

void paint_text(Painter& painter, const Entity& entity, const Context& context);
void paint_attribute_definition(Painter& painter, const Entity& entity, const Context& context);
void paint_paragraphs(Painter& painter, const Entity& entity, const Context& context);
void paint_tolerance(Painter& painter, const Entity& entity, const Context& context);

void paint_hatch(Painter& painter, const Entity& entity, const Context& context);

void paint_reference(Painter& painter, const Entity& entity, const Context& context);  ///< to a block
void paint_dimension(Painter& painter, const Entity& entity, const Context& context);
void paint_leader(Painter& painter, const Entity& entity, const Context& context);
void paint_multiple_leader(Painter& painter, const Entity& entity, const Context& context);
void paint_viewport(Painter& painter, const Entity& entity, const Context& context);
/// Pictures are files of their own, which are never opened.
void paint_picture_frame(Painter& painter, const Entity& entity, const Context& context);
void paint_wipeout(Painter& painter, const Entity& entity, const Context& context);

}  // namespace foliant::hosts::autocad
