#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <ocidl.h>
#include <string>
#include <string_view>
#include <vector>

#include "windows/servers/classes.h"
#include "windows/servers/record.h"
#include "windows/servers/scene.h"
#include "windows/servers/sent_arguments.h"

namespace foliant::tests::servers {

/// How many recording objects there are in this process.
inline std::atomic<long> live_objects = 0;

/// What a process does before it ends in the middle of a call. Wine would offer the classes of one that is
/// gone for ever.
inline void (*before_death)() = [] {};

/// An automation object that records every call with the names as spelled and the types as sent, and does
/// nothing else but what its callers see of a host (classes.h says which member does what):
///
/// - A document that is printed to a file makes that file; one that is printed without asks for the file's
///   name in a dialog, as PDF printers do.
/// - A Distiller makes its output and raises its events. It writes a line of its log for each line
///   "%log TEXT" of its input, records the files that the input runs, and fails when a line of the input is "%fail".
/// - Acrobat puts up the dialogs of its menu, and has a window while it shows what others sent it.
/// - A transfer goes on while it is asked about for the first time.
class RecordingObject final : public IDispatch,
                              public IConnectionPointContainer,
                              public IConnectionPoint,
                              public RecordedObject {
  public:
    /// A host, such as Word itself, or an object of one. Hosts and documents record their end.
    RecordingObject(std::string object, std::shared_ptr<Scene> scene, bool is_host);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
    ULONG STDMETHODCALLTYPE Release() override;

    const std::string& recorded_name() const override { return object_; }

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

    const Collection* collection() const;
    IUnknown* new_elements();
    void put_result(std::string_view told, VARIANT& result);
    void act(Does does, const SentArguments& sent);
    void print(const SentArguments& sent, bool with_notice);
    void convert(const VARIANT& input, const VARIANT& output);
    void raise_event(int number, std::vector<VARIANT> arguments);

    std::string object_;
    std::shared_ptr<Scene> scene_;
    bool is_host_;
    bool busy_ = false;
    LONG references_ = 1;
    DWORD next_cookie_ = 1;
    std::map<DWORD, IDispatch*> sinks_;
};

}  // namespace foliant::tests::servers
