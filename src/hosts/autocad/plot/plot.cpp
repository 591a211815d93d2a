#include "hosts/autocad/plot/plot.h"

#include "hosts/autocad/plot/measuring_canvas.h"
#include "hosts/autocad/plot/painter.h"
#include "hosts/autocad/plot/pdf_canvas.h"
#include "hosts/autocad/plot/sheet.h"

namespace foliant::hosts::autocad {

std::string plot(const Drawing& drawing, const Layout& layout, const std::string& title) {
    Fonts fonts;
    MeasuringCanvas measure(fonts);
    Painter(drawing, fonts, measure).paint(layout.content->entities, {});
    if (measure.taken().is_empty()) throw NothingToPlot("there is nothing on it that is plotted");
    const Sheet sheet = sheet_for(drawing, layout, measure.taken());
    PdfCanvas page(fonts, sheet.width, sheet.height, title);
    Context context;
    context.place = sheet.place;
    context.dash_unit = sheet.place.scale();
    Painter(drawing, fonts, page).paint(layout.content->entities, context);
    return page.finish();
}

}  // namespace foliant::hosts::autocad
