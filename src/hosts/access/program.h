#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "hosts/access/database/jet_file.h"
#include "hosts/access/report/report_pages.h"
#include "hosts/machine.h"

namespace foliant::hosts::access {

/// The running Access: the database that is open and the printer. Every member but `quit` raises 462 once it was quit.
class Program {
  public:
    explicit Program(Machine& machine) : machine_(machine), printer_(machine.default_printer()) {}

    Machine& machine() const;

    const std::string& printer() const;
    void choose_printer(std::string name);

    /// Raises 7867 when one is open, and why the file cannot be opened.
    void open_database(const std::filesystem::path& path, const std::string& password);
    void close_database();

    /// Prints the table or query of that name on the printer. Raises 2103 for a name that is not there, 3075 for a condition
    /// or query that cannot be worked out, and what printing raises.
    void print_report(const std::string& name, const std::string& filter, const std::string& condition);

    void quit() noexcept;

  private:
    JetFile& database() const;
    void require_running() const;
    StoredQuery filter_named(const std::string& name);
    Report make_report(const std::string& name, const std::string& filter, const std::string& condition);
    std::string spelled(const std::string& name) const;
    Relation records_of_report(const std::string& name);
    [[noreturn]] void fail_without(const std::string& name) const;
    void print(const Report& report);
    void write(const Report& report, const std::filesystem::path& target);

    Machine& machine_;
    std::string printer_;
    std::filesystem::path path_;
    std::unique_ptr<JetFile> database_;
    bool has_quit_ = false;
};
using ProgramPtr = std::shared_ptr<Program>;

}  // namespace foliant::hosts::access
