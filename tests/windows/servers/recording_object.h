#pragma once

#include <atomic>
#include <map>
#include <ocidl.h>
#include <string>
#include <vector>

namespace foliant::tests::servers {

/// How many recording objects there are in this process.
inline std::atomic<long> live_objects = 0;

/// An automation object that records every call with the names as spelled and the types as sent, and does
/// nothing else but make the files that its host would make and, as a Distiller, raise its events.
class RecordingObject final : public IDispatch, public IConnectionPointContainer, public IConnectionPoint {
  public:
    /// `created` objects also record their beginning and end.
    RecordingObject(std::string object, bool created);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** type) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* raised, UINT*) override;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

  private:
    ~RecordingObject();

    std::string arguments_text(const DISPPARAMS& parameters) const;
    void act(const std::string& member, const DISPPARAMS& parameters);
    void convert(const VARIANT& input, const VARIANT& output);
    void raise_event(int number, std::vector<VARIANT> arguments);

    std::string object_;
    bool created_;
    LONG references_ = 1;
    DWORD next_cookie_ = 1;
    std::map<DWORD, IDispatch*> sinks_;
};

}  // namespace foliant::tests::servers
