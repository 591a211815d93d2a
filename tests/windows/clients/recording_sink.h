#pragma once

#include <functional>
#include <ole2.h>
#include <string>

namespace foliant::tests::clients {

/// Writes the component's events into the client's record as they come: `event JobStart("in.ps", "out.pdf")`.
class RecordingSink final : public IDispatch {
  public:
    /// What else it does with an event; the arguments are the component's, and its result is what the
    /// component gets.
    using Action = std::function<HRESULT(DISPID event, DISPPARAMS& sent)>;

    /// `beginning` begins each of its lines. Begins with one reference, which is the maker's.
    explicit RecordingSink(std::string beginning = "", Action action = {})
        : beginning_(std::move(beginning)), action_(std::move(action)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* sent, VARIANT*, EXCEPINFO*,
                                     UINT*) override;

  private:
    ~RecordingSink() = default;

    std::string beginning_;
    Action action_;
    ULONG references_ = 1;
};

/// Connects a sink to an object, and gives the number under which it is connected; 0 when that fails.
DWORD connect(IUnknown& object, RecordingSink& sink);

/// Ends a connection; false when there is none of that number.
bool disconnect(IUnknown& object, DWORD connection);

}  // namespace foliant::tests::clients
