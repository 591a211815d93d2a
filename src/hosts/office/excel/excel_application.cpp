#include "hosts/office/excel/excel_application.h"

#include "automation/coerce.h"
#include "hosts/late_bound.h"
#include "hosts/office/engine/document_opener.h"
#include "hosts/office/engine/loaded_document.h"
#include "hosts/office/engine/start.h"
#include "hosts/office/excel/excel_error.h"
#include "hosts/office/excel/workbook.h"
#include "hosts/office/excel/workbook_kind.h"

namespace foliant::hosts::office {

using automation::to_text;
using automation::Value;

namespace {

using RunningPtr = std::shared_ptr<Running>;

constexpr double points_per_inch = 72;

std::string given_text(const Value& argument) {
    return is_given(argument) ? to_text(argument) : std::string();
}

Value open(const RunningPtr& running, const Bound& arguments) {
    enum Parameter : std::size_t { file_name, password = 4, write_password };
    const Passwords passwords{given_text(arguments[password]), given_text(arguments[write_password])};
    ImportFilter filter;
    const auto choose = [&](const DocumentFile& file, const Office& office) {
        return filter = workbook_filter(file, office);
    };
    auto workbook = std::make_shared<Spreadsheet>(open_in_office(
        running->machine(), to_text(arguments[file_name]), passwords, microsoft_excel, choose));
    // LibreOffice puts the sheet's name above what comes without a page setup.
    if (reads_text(filter)) workbook->remove_bands();
    running->add(workbook);
    return make_workbook(running, std::move(workbook));
}

automation::ObjectPtr make_workbooks(const RunningPtr& running) {
    auto workbooks = std::make_shared<LateBound>(microsoft_excel.name);
    workbooks->add_property("Count", [running] { return running->open_documents(); });
    workbooks->add_method("Open",
                          {"FileName", "UpdateLinks", "ReadOnly", "Format", "Password", "WriteResPassword",
                           "IgnoreReadOnlyRecommended"},
                          [running](const Bound& arguments) { return open(running, arguments); });
    return workbooks;
}

}  // namespace

automation::ObjectPtr make_excel_application(Machine& machine) {
    require_office(microsoft_excel);
    auto running = std::make_shared<Running>(machine, microsoft_excel);
    auto application = std::make_shared<LateBound>(microsoft_excel.name);
    application->add_property("Workbooks", [running] {
        running->require_running();
        return make_workbooks(running);
    });
    // Kept, without effect: this Excel asks nothing.
    const auto alerts = std::make_shared<bool>(true);
    application->add_property(
        "DisplayAlerts",
        [running, alerts] {
            running->require_running();
            return *alerts;
        },
        [running, alerts](const Value& value) {
            running->require_running();
            *alerts = automation::to_bool(value);
        });
    application->add_property(
        "ActivePrinter", [running] { return running->active_printer(); },
        [running](const Value& value) { running->choose_printer(to_text(value)); });
    application->add_method("InchesToPoints", {"Inches"}, [running](const Bound& arguments) {
        running->require_running();
        return automation::to_double(arguments[0]) * points_per_inch;
    });
    application->add_method("Quit", {}, [running](const Bound&) {
        running->quit();
        return Value();
    });
    return application;
}

}  // namespace foliant::hosts::office
