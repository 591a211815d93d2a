#include "automation/error.h"

#include <new>
#include <utility>

namespace foliant::automation {

Error::Error(std::int32_t number, std::string source, std::string description,
             std::shared_ptr<const Error> cause)
    : number_(number),
      source_(std::move(source)),
      description_(std::move(description)),
      cause_(std::move(cause)) {}

Error::Error(RuntimeError number) : Error(number, std::string(usual_description(number))) {}

Error::Error(RuntimeError number, std::string description)
    : Error(static_cast<std::int32_t>(number), "", std::move(description)) {}

const Error& root_cause(const Error& error) noexcept {
    const Error* root = &error;
    while (root->cause() != nullptr)
        root = root->cause().get();
    return *root;
}

std::string_view usual_description(RuntimeError number) noexcept {
    switch (number) {
        case RuntimeError::invalid_procedure_call:
            return "Invalid procedure call or argument";
        case RuntimeError::overflow:
            return "Overflow";
        case RuntimeError::out_of_memory:
            return "Out of memory";
        case RuntimeError::subscript_out_of_range:
            return "Subscript out of range";
        case RuntimeError::type_mismatch:
            return "Type mismatch";
        case RuntimeError::internal_error:
            return "Internal error";
        case RuntimeError::bad_file_name:
            return "Bad file name or number";
        case RuntimeError::file_not_found:
            return "File not found";
        case RuntimeError::device_io_error:
            return "Device I/O error";
        case RuntimeError::disk_full:
            return "Disk full";
        case RuntimeError::permission_denied:
            return "Permission denied";
        case RuntimeError::path_file_access:
            return "Path/File access error";
        case RuntimeError::path_not_found:
            return "Path not found";
        case RuntimeError::object_not_set:
            return "Object variable or With block variable not set";
        case RuntimeError::invalid_use_of_null:
            return "Invalid use of Null";
        case RuntimeError::object_required:
            return "Object required";
        case RuntimeError::cannot_create_object:
            return "ActiveX component can't create object";
        case RuntimeError::no_such_member:
            return "Object doesn't support this property or method";
        case RuntimeError::action_not_supported:
            return "Object doesn't support this action";
        case RuntimeError::named_argument_not_found:
            return "Named argument not found";
        case RuntimeError::argument_not_optional:
            return "Argument not optional";
        case RuntimeError::wrong_number_of_arguments:
            return "Wrong number of arguments or invalid property assignment";
        case RuntimeError::events_not_supported:
            return "Object or class does not support the set of events";
    }
    return "Application-defined or object-defined error";
}

Error current_error() noexcept {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return Error(RuntimeError::out_of_memory);
    } catch (const std::exception& other) {
        return Error(RuntimeError::internal_error, other.what());
    } catch (...) {
        return Error(RuntimeError::internal_error);
    }
}

}  // namespace foliant::automation
