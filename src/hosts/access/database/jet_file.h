#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/access/sql/query.h"

namespace foliant::hosts::access {

/// A file that is no database, or a part of one that cannot be read; `what()` says why, as a part of a sentence.
struct DatabaseError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The password is missing or wrong.
struct WrongPassword : DatabaseError {
    using DatabaseError::DatabaseError;
};

/// What is in a database besides its data.
struct DatabaseObjects {
    std::vector<std::string> tables;
    std::vector<std::string> queries;
    std::vector<std::string> reports;
    std::vector<std::string> linked_tables;  ///< whose data are in other files
};

/// A database of Access, .mdb or .accdb, as mdbtools reads it. Names of what it holds count in any case. Every member
/// raises DatabaseError for a damaged file.
class JetFile : public Catalogue {
  public:
    /// Opens the file. A database without a password takes any. Raises DatabaseError for what is no database or is
    /// encrypted, WrongPassword.
    JetFile(const std::filesystem::path& path, std::string_view password);
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;
    ~JetFile() override;

    const DatabaseObjects& objects() const noexcept { return objects_; }

    std::optional<Relation> table(std::string_view name) override;
    std::optional<StoredQuery> query(std::string_view name) override;
    /// The query that a report keeps for itself as the source of its records; nothing where it names a table or another
    /// query, in a part of the file that nobody here reads.
    std::optional<StoredQuery> query_of_report(std::string_view report);

  private:
    struct Object;
    struct Open;  ///< what the library holds

    std::unique_ptr<Open> open_;
    DatabaseObjects objects_;
    std::optional<std::vector<Row>> query_pieces_;  ///< once a query was asked for
};

}  // namespace foliant::hosts::access
