#pragma once

#include <ocidl.h>
#include <span>

#include "com/arguments.h"
#include "com/connection_point.h"
#include "com/unknown.h"
#include "core/build_pdf.h"
#include "platform/win32/windows_platform.h"

namespace foliant::com {

class BuildPdfObject;

/// The dual interface `_BuildPDF` as callers by slot see it: a pointer to a table of functions, made from the
/// member table (slots.h).
struct DualInterface {
    const void* const* functions;
    BuildPdfObject* object;
};

/// The object that clients hold. Its functions are what Windows asks for; what a member does is core's
/// business.
class BuildPdfObject final : public ISupportErrorInfo,
                             public IConnectionPointContainer,
                             public IProvideClassInfo2,
                             public Counted<BuildPdfObject> {
  public:
    BuildPdfObject();

    /// IDispatch and `_BuildPDF`, which are one.
    IDispatch* dispatch() noexcept { return reinterpret_cast<IDispatch*>(&dual_); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return add_reference(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return release_reference(); }

    // The functions of IDispatch, which the dual interface forwards.
    HRESULT get_type_info(UINT index, ITypeInfo** type) noexcept;
    HRESULT get_ids_of_names(LPOLESTR* names, UINT count, DISPID* ids) noexcept;
    HRESULT invoke(DISPID id, WORD flags, const DISPPARAMS* sent, VARIANT* result,
                   EXCEPINFO* failure) noexcept;

    /// Calls a member by slot. `arguments` are in the table's order; the result goes to `result`, which is a
    /// place of the result's type, or nullptr for a member without one.
    HRESULT call_slot(const core::Member& member, std::span<VARIANT> arguments, void* result) noexcept;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) noexcept override;
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** type) noexcept override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) noexcept override;

  private:
    friend class Counted<BuildPdfObject>;
    ~BuildPdfObject() = default;

    DualInterface dual_;
    ConnectionPoint events_;
    platform::win32::WindowsPlatform windows_;
    core::BuildPDF component_;
};

}  // namespace foliant::com
