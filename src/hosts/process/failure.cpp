#include "hosts/process/failure.h"

#include <filesystem>
#include <system_error>

#include "automation/error.h"

namespace foliant::hosts::process {

namespace {

enum class FailureKind : std::uint8_t { automation, file };

void put_error(Writer& message, const automation::Error& error) {
    message.put(FailureKind::automation).put(error.number()).put(error.source()).put(error.description());
}

}  // namespace

void put_failure(Writer& message) {
    try {
        throw;
    } catch (const std::filesystem::filesystem_error& failure) {
        message.put(FailureKind::file).put(failure.path1().native()).put(failure.code().value());
    } catch (...) {
        put_error(message, automation::current_error());
    }
}

void throw_failure(Reader& message) {
    const auto kind = static_cast<FailureKind>(message.number<std::uint8_t>());
    if (kind == FailureKind::file) {
        const std::string path = message.text();
        throw std::filesystem::filesystem_error(
            "", path, std::error_code(message.number<int>(), std::generic_category()));
    }
    if (kind != FailureKind::automation) throw Garbled();
    const auto number = message.number<std::int32_t>();
    std::string source = message.text();
    throw automation::Error(number, std::move(source), message.text());
}

}  // namespace foliant::hosts::process
