#include "cli/exit_codes.h"

#include "session/errors.h"

namespace foliant::cli {

using automation::RuntimeError;

int exit_code_for(const automation::Error& error) {
    // Some members say one sentence whatever failed; that an engine is missing, memory or room on the disk, only its
    // cause tells.
    const automation::Error& cause = automation::root_cause(error);
    if (cause.is(RuntimeError::cannot_create_object)) return exit_missing_engine;
    if (cause.is(RuntimeError::out_of_memory)) return exit_memory_limit;
    if (cause.is(RuntimeError::disk_full)) return exit_failure;
    if (error.number() == session::component_error_number) {
        return error.description().ends_with(" does not exist.") ? exit_missing_input : exit_host_failure;
    }
    switch (static_cast<RuntimeError>(error.number())) {
        case RuntimeError::no_such_member:
        case RuntimeError::named_argument_not_found:
        case RuntimeError::argument_not_optional:
        case RuntimeError::wrong_number_of_arguments:
            return exit_usage;
        case RuntimeError::file_not_found:
        case RuntimeError::device_io_error:
        case RuntimeError::permission_denied:
        case RuntimeError::path_file_access:
        case RuntimeError::path_not_found:
        case RuntimeError::overflow:
        case RuntimeError::type_mismatch:
        case RuntimeError::invalid_procedure_call:
        case RuntimeError::invalid_use_of_null:
        case RuntimeError::internal_error:
            return exit_failure;
        default:
            return exit_host_failure;
    }
}

}  // namespace foliant::cli
