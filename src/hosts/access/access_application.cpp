#include "hosts/access/access_application.h"

#include <utility>

#include "automation/coerce.h"
#include "hosts/access/access_error.h"
#include "hosts/access/program.h"
#include "hosts/late_bound.h"

namespace foliant::hosts::access {

using automation::ObjectPtr;
using automation::RuntimeError;
using automation::to_text;
using automation::Value;

namespace {

std::string given_text(const Value& argument) {
    return is_given(argument) ? to_text(argument) : std::string();
}

/// A printer, as Access hands it out and takes it back.
class PrinterObject : public LateBound {
  public:
    explicit PrinterObject(std::string name) : LateBound(application_name), name_(std::move(name)) {
        add_property("DeviceName", [this] { return Value(name_); });
    }
    const std::string& name() const noexcept { return name_; }

  private:
    std::string name_;
};

ObjectPtr make_printers(const ProgramPtr& program) {
    auto printers = std::make_shared<LateBound>(application_name);
    const auto names = std::make_shared<std::vector<std::string>>(program->machine().printer_names());
    printers->add_property("Count", [names] { return static_cast<std::int32_t>(names->size()); });
    printers->add_method("Item", {"Index"}, [names](const Bound& given) {
        const std::int32_t index = automation::to_int32(given[0]);
        if (index < 1 || static_cast<std::size_t>(index) > names->size())
            throw access_error(RuntimeError::subscript_out_of_range, "There is no printer of that number.");
        return ObjectPtr(std::make_shared<PrinterObject>((*names)[static_cast<std::size_t>(index - 1)]));
    });
    return printers;
}

void choose_printer(Program& program, const Value& printer) {
    const auto* const object = printer.if_holds<ObjectPtr>();
    const auto* const chosen =
        object == nullptr ? nullptr : dynamic_cast<const PrinterObject*>(object->get());
    if (chosen == nullptr) throw access_error(RuntimeError::type_mismatch, "That is no printer of Access's.");
    program.choose_printer(chosen->name());
}

void open_report(Program& program, const Bound& given) {
    enum Parameter : std::size_t { report_name, view, filter_name, where_condition };
    if (is_given(given[view]) && automation::to_int16(given[view]) != 0)
        throw access_error(RuntimeError::action_not_supported,
                           "Reports are only printed here (view 0), not shown or designed.");
    program.print_report(to_text(given[report_name]), given_text(given[filter_name]),
                         given_text(given[where_condition]));
}

ObjectPtr make_commands(const ProgramPtr& program) {
    auto commands = std::make_shared<LateBound>(application_name);
    commands->add_method("OpenReport",
                         {"ReportName", "View", "FilterName", "WhereCondition", "WindowMode", "OpenArgs"},
                         [program](const Bound& given) {
                             open_report(*program, given);
                             return Value();
                         });
    // What was printed is not open any more.
    commands->add_method("Close", {"ObjectType", "ObjectName", "Save"}, [program](const Bound&) {
        program->machine();
        return Value();
    });
    return commands;
}

}  // namespace

ObjectPtr make_access_application(Machine& machine) {
    const auto program = std::make_shared<Program>(machine);
    auto application = std::make_shared<LateBound>(application_name);
    application->add_property("Printers", [program] { return make_printers(program); });
    application->add_property(
        "Printer", [program] { return ObjectPtr(std::make_shared<PrinterObject>(program->printer())); },
        [program](const Value& printer) { choose_printer(*program, printer); });
    application->add_method("OpenCurrentDatabase", {"filepath", "Exclusive", "bstrPassword"},
                            [program](const Bound& given) {
                                program->open_database(to_text(given[0]), given_text(given[2]));
                                return Value();
                            });
    application->add_property("DoCmd", [program] {
        program->machine();
        return make_commands(program);
    });
    application->add_method("CloseCurrentDatabase", {}, [program](const Bound&) {
        program->close_database();
        return Value();
    });
    application->add_method("Quit", {"Option"}, [program](const Bound&) {
        program->quit();
        return Value();
    });
    return application;
}

}  // namespace foliant::hosts::access
