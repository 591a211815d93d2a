#pragma once

#include <curl/curl.h>
#include <new>

namespace foliant::hosts::transfer {

/// The library is set up once; that it cannot be is a lack of memory.
inline void start_curl() {
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (started != CURLE_OK) throw std::bad_alloc();
}

}  // namespace foliant::hosts::transfer
