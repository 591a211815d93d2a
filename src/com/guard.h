#pragma once

#include <oaidl.h>
#include <utility>

#include "automation/error.h"

namespace foliant::com {

/// The HRESULT of an error: run-time error n travels as 800A0000 + n, so that a script's `Err.Number` reads
/// n; numbers that are HRESULTs already stay.
HRESULT hresult_of(const automation::Error& error) noexcept;

/// Describes an error to a caller that handed over a place for it. Texts stay null when memory is exhausted.
void describe(const automation::Error& error, EXCEPINFO& info) noexcept;

/// Makes an error the thread's error object, for callers by slot, and returns its HRESULT.
HRESULT set_error_info(const automation::Error& error) noexcept;

/// Turns the exception being handled into what a caller by slot gets; call it inside a catch clause only.
HRESULT fail_with_error_info() noexcept;

/// Runs the body of an entry point: nothing that is thrown in it leaves, whatever its type.
template <class Body>
HRESULT guarded(Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return fail_with_error_info();
    }
}

}  // namespace foliant::com
