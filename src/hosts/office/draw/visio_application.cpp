#include "hosts/office/draw/visio_application.h"

#include <utility>

#include "automation/coerce.h"
#include "hosts/late_bound.h"
#include "hosts/office/draw/drawing.h"
#include "hosts/office/draw/drawing_kind.h"
#include "hosts/office/draw/visio_error.h"
#include "hosts/office/engine/document_opener.h"
#include "hosts/office/engine/loaded_document.h"
#include "hosts/office/engine/start.h"
#include "hosts/office/running.h"

namespace foliant::hosts::office {

using automation::ObjectPtr;
using automation::to_text;
using automation::Value;

namespace {

using RunningPtr = std::shared_ptr<Running>;

ObjectPtr make_drawing(const RunningPtr& running, const std::shared_ptr<OfficeDocument>& drawing) {
    auto object = std::make_shared<LateBound>(microsoft_visio.name);
    const auto printer = std::make_shared<std::string>(running->active_printer());
    object->add_property(
        "Printer", [printer] { return *printer; },
        [running, printer](const Value& value) {
            running->require_printer(to_text(value));
            *printer = to_text(value);
        });
    object->add_method("Print", {}, [running, drawing, printer](const Bound&) {
        print(*drawing, {}, *printer, running->machine(), microsoft_visio);
        return Value();
    });
    object->add_method("Close", {}, [drawing](const Bound&) {
        drawing->close();
        return Value();
    });
    return object;
}

ObjectPtr make_drawings(const RunningPtr& running) {
    auto drawings = std::make_shared<LateBound>(microsoft_visio.name);
    drawings->add_property("Count", [running] { return running->open_documents(); });
    drawings->add_method("Open", {"FileName"}, [running](const Bound& arguments) {
        auto drawing = std::make_shared<Drawing>(
            open_in_office(running->machine(), to_text(arguments[0]), {}, microsoft_visio, drawing_filter));
        running->add(drawing);
        return make_drawing(running, drawing);
    });
    return drawings;
}

}  // namespace

ObjectPtr make_visio_application(Machine& machine) {
    require_office(microsoft_visio);
    auto running = std::make_shared<Running>(machine, microsoft_visio);
    auto application = std::make_shared<LateBound>(microsoft_visio.name);
    application->add_property("Documents", [running] {
        running->require_running();
        return make_drawings(running);
    });
    application->add_method("Quit", {}, [running](const Bound&) {
        running->quit();
        return Value();
    });
    return application;
}

}  // namespace foliant::hosts::office
