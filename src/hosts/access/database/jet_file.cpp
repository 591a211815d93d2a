#include "hosts/access/database/jet_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "automation/text.h"
#include "hosts/access/database/jet_table.h"
#include "hosts/access/database/query_pieces.h"
#include "hosts/access/database/system_table.h"

namespace foliant::hosts::access {
namespace {

constexpr const char* repair = "Repair it in Access (Compact and Repair Database)";

// Where the first page has what concerns passwords; the part from 0x18 on comes deciphered from the library.
constexpr std::size_t password_at = 0x42;
constexpr std::size_t creation_at = 0x72;
constexpr std::size_t encryption_at = 0x299;

std::string utf16_to_utf8(std::string_view bytes) {
    std::string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        const unsigned unit = low + 256U * high;
        if (unit == 0) break;
        std::array<char, 6> utf8{};
        text.append(utf8.data(), static_cast<std::size_t>(g_unichar_to_utf8(unit, utf8.data())));
    }
    return text;
}

/// The password that the file keeps, which is hidden and not ciphered; empty where there is none.
std::string stored_password(const MdbHandle& database) {
    const auto* page = reinterpret_cast<const char*>(database.pg_buf);
    if (database.f->jet_version == MDB_VER_JET3) {
        const std::string bytes(page + password_at, 20);
        return bytes.substr(0, bytes.find('\0'));
    }
    double creation = 0;
    std::memcpy(&creation, page + creation_at, sizeof creation);
    const auto mask =
        std::isfinite(creation) && std::fabs(creation) < 1e9 ? static_cast<std::int32_t>(creation) : 0;
    std::array<char, sizeof mask> mask_bytes{};
    std::memcpy(mask_bytes.data(), &mask, sizeof mask);
    std::string bytes(page + password_at, 40);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(bytes[i] ^ mask_bytes[i % mask_bytes.size()]);
    return utf16_to_utf8(bytes);
}

bool is_encrypted(const MdbHandle& database) {
    return database.f->jet_version >= MDB_VER_ACCDB_2007 &&
           (database.pg_buf[encryption_at] != 0 || database.pg_buf[encryption_at + 1] != 0);
}

void require_password(const MdbHandle& database, std::string_view given) {
    if (is_encrypted(database))
        throw DatabaseError("it is encrypted. Remove its password in Access (File, Info, Decrypt Database)");
    const std::string wanted = stored_password(database);
    if (wanted.empty() || wanted == given) return;
    throw WrongPassword(given.empty() ? "it needs a password" : "the password is wrong");
}

// What is listed, by the numbers of Access.
enum ObjectType : std::int64_t {
    local_table = 1,
    server_table = 4,
    stored_query = 5,
    linked_table = 6,
    own_report = -32764,
};

}  // namespace

/// One of the things that a database lists.
struct JetFile::Object {
    TablePlace place;
    std::int64_t type = 0;
    std::int64_t flags = 0;

    bool is_users() const { return (flags & 0x80000002) == 0 && !place.name.starts_with("~"); }
};

struct JetFile::Open {
    struct Close {
        void operator()(MdbHandle* database) const { mdb_close(database); }
    };

    const Object* find(std::string_view name, ObjectType type) const {
        const auto found = std::ranges::find_if(objects, [&](const Object& object) {
            return object.type == type && automation::equal_ignoring_case(object.place.name, name);
        });
        return found == objects.end() ? nullptr : &*found;
    }

    void read_objects();
    DatabaseObjects list() const;

    std::unique_ptr<MdbHandle, Close> handle;
    std::vector<Object> objects;
};

void JetFile::Open::read_objects() {
    constexpr unsigned long page_of_catalogue = 2;
    const Relation catalogue = read_records(handle.get(), {"MSysObjects", page_of_catalogue}, Binary::bytes);
    for (const Row& row : rows_with(catalogue, {"Id", "Name", "Type", "Flags", "LvProp"})) {
        enum Field : std::size_t { id, name, type, flags, properties };
        const auto page = static_cast<unsigned long>(whole(row, id)) & object_id_mask;
        objects.push_back(
            {{text(row, name), page, text(row, properties)}, whole(row, type), whole(row, flags)});
    }
}

DatabaseObjects JetFile::Open::list() const {
    DatabaseObjects names;
    for (const Object& object : objects) {
        const std::string& name = object.place.name;
        if (object.type == local_table && object.is_users()) names.tables.push_back(name);
        if (object.type == stored_query && object.is_users()) names.queries.push_back(name);
        if (object.type == own_report) names.reports.push_back(name);
        if (object.type == linked_table || object.type == server_table) names.linked_tables.push_back(name);
    }
    for (auto* list : {&names.tables, &names.queries, &names.reports, &names.linked_tables})
        std::ranges::sort(*list);
    return names;
}

JetFile::JetFile(const std::filesystem::path& path, std::string_view password)
    : open_(std::make_unique<Open>()) {
    std::error_code unknown;
    if (std::filesystem::file_size(path, unknown) == 0) throw DatabaseError("it is empty");
    open_->handle.reset(mdb_open(path.c_str(), MDB_NOFLAGS));
    if (!open_->handle)
        throw DatabaseError("it is no Access database (.mdb from Access 97, .accdb), or is damaged");
    MdbHandle* const handle = open_->handle.get();
    require_password(*handle, password);
    const auto page_size = static_cast<std::uintmax_t>(handle->fmt->pg_size);
    if (std::filesystem::file_size(path, unknown) % page_size != 0)
        throw DatabaseError(std::string("it has been cut short. ") + repair);
    try {
        open_->read_objects();
    } catch (const DatabaseError&) {
        throw DatabaseError(std::string("its list of tables is damaged. ") + repair);
    }
    objects_ = open_->list();
}

JetFile::~JetFile() = default;

std::optional<Relation> JetFile::table(std::string_view name) {
    const Object* const table = open_->find(name, local_table);
    if (table == nullptr || !table->is_users()) return std::nullopt;
    try {
        return read_records(open_->handle.get(), table->place);
    } catch (const DatabaseError& failure) {
        throw DatabaseError(std::string(failure.what()) + ". " + repair);
    }
}

std::optional<StoredQuery> JetFile::query(std::string_view name) {
    const Object* const object = open_->find(name, stored_query);
    if (object == nullptr) return std::nullopt;
    if (!query_pieces_) {
        const Object* const kept = open_->find("MSysQueries", local_table);
        query_pieces_ = kept == nullptr
                            ? std::vector<Row>()
                            : query_pieces(read_records(open_->handle.get(), kept->place, Binary::bytes));
    }
    return query_of(*query_pieces_, object->place.page);
}

std::optional<StoredQuery> JetFile::query_of_report(std::string_view report) {
    return query("~sq_r" + std::string(report));
}

}  // namespace foliant::hosts::access
