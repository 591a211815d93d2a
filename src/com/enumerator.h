#pragma once

#include <algorithm>
#include <ocidl.h>
#include <utility>
#include <vector>

#include "com/guard.h"
#include "com/unknown.h"

namespace foliant::com {

/// A list that callers walk: IEnumConnectionPoints, IEnumConnections. `Entry` owns what it holds and can
/// `give` a copy to the caller.
template <class Interface, class Entry, class Given>
class Enumerator final : public SingleInterface<Enumerator<Interface, Entry, Given>, Interface> {
  public:
    explicit Enumerator(std::vector<Entry> entries, std::size_t next = 0)
        : entries_(std::move(entries)), next_(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Given* given, ULONG* fetched) noexcept override {
        if (given == nullptr || (fetched == nullptr && wanted != 1)) return E_POINTER;
        ULONG count = 0;
        while (count < wanted && next_ < entries_.size())
            given[count++] = entries_[next_++].give();
        if (fetched != nullptr) *fetched = count;
        return count == wanted ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override {
        const std::size_t left = entries_.size() - next_;
        next_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() noexcept override {
        next_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** copy) noexcept override {
        if (copy == nullptr) return E_POINTER;
        *copy = nullptr;
        return guarded([&] {
            *copy = new Enumerator(entries_, next_);
            return S_OK;
        });
    }

  private:
    std::vector<Entry> entries_;
    std::size_t next_;
};

}  // namespace foliant::com
