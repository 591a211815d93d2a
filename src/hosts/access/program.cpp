#include "hosts/access/program.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "automation/text.h"
#include "hosts/access/access_error.h"
#include "hosts/pages/paper.h"
#include "hosts/pdf_printer.h"
#include "hosts/write_failure.h"

namespace foliant::hosts::access {
namespace {

automation::Error open_error(const std::filesystem::filesystem_error& failure) {
    const std::string path = failure.path1().string();
    switch (failure.code().value()) {
        case ENOENT:
        case ENOTDIR:
            return access_error(database_not_found, path + " does not exist. Check the name and the folder.");
        case EISDIR:
            return access_error(not_a_database, path + " is no database: it is a folder.");
        case ENOTSUP:
            return access_error(not_a_database, path + " is no database: it is a device or a pipe.");
        default:
            return access_error(automation::RuntimeError::permission_denied,
                                "Cannot read " + path + ": " + failure.code().message() + ".");
    }
}

std::string list_of(const char* what, const std::vector<std::string>& names) {
    if (names.empty()) return std::string(" It has no ") + what + ".";
    constexpr std::size_t most = 50;
    std::string text = std::string(" Its ") + what + " are ";
    for (std::size_t i = 0; i < std::min(names.size(), most); ++i)
        text += (i == 0 ? "\"" : ", \"") + names[i] + "\"";
    if (names.size() > most) text += " and " + std::to_string(names.size() - most) + " more";
    return text + ".";
}

bool is_among(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::any_of(
        names, [&](const std::string& other) { return automation::equal_ignoring_case(other, name); });
}

}  // namespace

void Program::require_running() const {
    if (has_quit_) throw access_error(not_running, "Access has been quit.");
}

Machine& Program::machine() const {
    require_running();
    return machine_;
}

const std::string& Program::printer() const {
    require_running();
    return printer_;
}

void Program::choose_printer(std::string name) {
    require_running();
    printer_ = std::move(name);
}

JetFile& Program::database() const {
    require_running();
    if (!database_) throw access_error(no_database_open, "No database is open.");
    return *database_;
}

void Program::open_database(const std::filesystem::path& path, const std::string& password) {
    require_running();
    if (database_) throw access_error(database_already_open, "A database is open already. Close it first.");
    try {
        const DocumentFile file = machine_.open_document(path);
        path_ = file.path;
        database_ = std::make_unique<JetFile>(file.place, password);
    } catch (const std::filesystem::filesystem_error& failure) {
        throw open_error(failure);
    } catch (const WrongPassword& failure) {
        throw access_error(wrong_password, "Cannot open " + path_.string() + ": " + failure.what() + ".");
    } catch (const DatabaseError& failure) {
        throw access_error(not_a_database, "Cannot open " + path_.string() + ": " + failure.what() + ".");
    }
}

void Program::close_database() {
    require_running();
    database_.reset();
}

void Program::quit() noexcept {
    database_.reset();
    has_quit_ = true;
}

void Program::fail_without(const std::string& name) const {
    const DatabaseObjects& objects = database_->objects();
    if (is_among(objects.linked_tables, name))
        throw access_error(report_not_found,
                           "The table \"" + name + "\" of " + path_.string() +
                               " is linked: its records are in another file, which is not opened. "
                               "Open the database that holds them.");
    if (is_among(objects.reports, name))
        throw access_error(report_not_found,
                           "The report \"" + name + "\" of " + path_.string() +
                               " names its records where only Access itself reads it. Give the name "
                               "of the table or query that it shows." +
                               list_of("tables", objects.tables) + list_of("queries", objects.queries));
    throw access_error(report_not_found, "There is no report, table or query \"" + name + "\" in " +
                                             path_.string() + "." + list_of("tables", objects.tables) +
                                             list_of("queries", objects.queries));
}

Relation Program::records_of_report(const std::string& name) {
    if (const auto own = database_->query_of_report(name)) return run_query(*database_, *own, name);
    if (auto records = records_of(*database_, name)) return std::move(*records);
    fail_without(name);
}

/// The name as the database spells it.
std::string Program::spelled(const std::string& name) const {
    const DatabaseObjects& objects = database_->objects();
    for (const auto* names : {&objects.reports, &objects.queries, &objects.tables})
        for (const std::string& known : *names)
            if (automation::equal_ignoring_case(known, name)) return known;
    return name;
}

StoredQuery Program::filter_named(const std::string& name) {
    if (auto query = database_->query(name)) return std::move(*query);
    throw access_error(report_not_found, "There is no query \"" + name + "\" in " + path_.string() +
                                             " to be used as a filter." +
                                             list_of("queries", database_->objects().queries));
}

Report Program::make_report(const std::string& name, const std::string& filter,
                            const std::string& condition) {
    Report report{.title = spelled(name), .records = {}};
    try {
        report.records = records_of_report(name);
        if (!filter.empty()) apply_filter(*database_, report.records, filter_named(filter), filter);
    } catch (const SqlError& failure) {
        throw access_error(criteria_not_understood, std::string(failure.what()) + ".");
    }
    try {
        keep_where(report.records, condition, queries_on(*database_));
    } catch (const SqlError& failure) {
        throw access_error(criteria_not_understood,
                           "The condition \"" + condition + "\" cannot be used: " + failure.what() + ".");
    }
    return report;
}

void Program::print_report(const std::string& name, const std::string& filter, const std::string& condition) {
    database();
    machine_.show_progress("Reading", -1);
    try {
        print(make_report(name, filter, condition));
    } catch (const DatabaseError& failure) {
        throw access_error(not_a_database, "Cannot read " + path_.string() + ": " + failure.what() + ".");
    }
}

void Program::print(const Report& report) {
    if (machine_.is_pdf_printer(printer_)) {
        const auto file = ask_for_printed_file(machine_, report.title);
        if (!file) throw access_error(action_cancelled, not_printed(report.title));
        write(report, *file);
        show_printed_file(machine_, *file);
        return;
    }
    const std::filesystem::path pdf = machine_.private_folder() / "print-job.pdf";
    write(report, pdf);
    machine_.print(printer_, pdf, report.title);
    std::filesystem::remove(pdf);
}

void Program::write(const Report& report, const std::filesystem::path& target) {
    try {
        const std::unique_ptr<OutputFile> file = machine_.make_output(target);
        write_report(
            report, LocaleForms::of_process(), pages::usual_paper(),
            [&](std::string_view bytes) { file->write(bytes); },
            [&](int percent) { machine_.show_progress("Printing", percent); });
        file->commit();
    } catch (const std::filesystem::filesystem_error& failure) {
        throw write_failure(application_name, failure);
    }
}

}  // namespace foliant::hosts::access
