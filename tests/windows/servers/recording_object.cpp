#include "windows/servers/recording_object.h"

#include <algorithm>
#include <new>
#include <olectl.h>
#include <sstream>
#include <utility>

#include "platform/win32/com_pointer.h"
#include "platform/win32/text.h"
#include "platform/win32/variant.h"
#include "windows/servers/acrobat_window.h"
#include "windows/servers/classes.h"
#include "windows/servers/dialogs.h"
#include "windows/servers/elements.h"
#include "windows/servers/one_point.h"
#include "windows/servers/record.h"

namespace foliant::tests::servers {

using platform::win32::to_utf16;
using platform::win32::to_utf8;

namespace {

/// What a caller asks of a collection whose elements it wants one by one.
constexpr Member enumeration{"", "_NewEnum", ""};

std::string flags_text(WORD flags) {
    std::string text;
    const auto add = [&](WORD bit, const char* name) {
        if ((flags & bit) != 0) text += (text.empty() ? "" : "|") + std::string(name);
    };
    add(DISPATCH_METHOD, "METHOD");
    add(DISPATCH_PROPERTYGET, "GET");
    add(DISPATCH_PROPERTYPUT, "PUT");
    add(DISPATCH_PROPERTYPUTREF, "PUTREF");
    return text;
}

/// "letter.pdf" for "C:\\In\\letter.doc".
std::wstring pdf_name(const std::wstring& path) {
    const std::wstring name = path.substr(path.rfind(L'\\') + 1);
    return name.substr(0, name.find(L'.')) + L".pdf";
}

/// A file that is got is there: what a command that begins with GET names last.
void transfer(const std::wstring& command) {
    if (command.starts_with(L"GET ")) make_file(command.substr(command.rfind(L":\\") - 1));
}

bool has_type_library() {
    HKEY key = nullptr;
    const bool found =
        RegOpenKeyW(HKEY_CLASSES_ROOT, L"CLSID\\{1CD675B2-ECD1-11D1-B976-00600802DB86}\\TypeLib", &key) ==
        ERROR_SUCCESS;
    if (found) RegCloseKey(key);
    return found;
}

const Refusal& refusal_of(const std::string& object) {
    return *std::find_if(std::begin(refusals), std::end(refusals),
                         [&](const Refusal& refusal) { return object.starts_with(refusal.host); });
}

BSTR text_or_null(const wchar_t* text) {
    return text == nullptr ? nullptr : SysAllocString(text);
}

/// Ends a call as a host does that cannot do it.
HRESULT end_badly(Ending ending, const Refusal& refusal, EXCEPINFO* raised) {
    if (ending == Ending::death) {
        before_death();
        TerminateProcess(GetCurrentProcess(), 1);
    }
    if (ending == Ending::bare_result || raised == nullptr) return E_ACCESSDENIED;
    *raised = {};
    raised->wCode = refusal.code;
    raised->scode = refusal.result;
    raised->bstrSource = text_or_null(refusal.source);
    raised->bstrDescription = text_or_null(refusal.description);
    return DISP_E_EXCEPTION;
}

/// It lives as long as the program.
VARIANT text_variant(const std::string& text) {
    VARIANT variant;
    variant.vt = VT_BSTR;
    variant.bstrVal = platform::win32::Bstr(text).release();
    return variant;
}

VARIANT number_variant(LONG number) {
    VARIANT variant;
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

}  // namespace

RecordingObject::RecordingObject(std::string object, std::shared_ptr<Scene> scene, bool is_host)
    : object_(std::move(object)), scene_(std::move(scene)), is_host_(is_host) {
    ++live_objects;
    ++scene_->objects;
    if (is_made(object_)) scene_->note("create " + object_);
}

RecordingObject::~RecordingObject() {
    --live_objects;
    const int left = --scene_->objects;
    if (!sinks_.empty()) scene_->note("a sink of " + object_ + " was left behind");
    const bool leaves_some = is_host_ && left > 0;
    if (is_host_ || is_made(object_))
        scene_->note("release " + object_ +
                     (leaves_some ? ", " + std::to_string(left) + " of its objects are left" : ""));
}

HRESULT RecordingObject::QueryInterface(REFIID id, void** out) {
    const bool has_events = object_ == "Distiller";
    *out = nullptr;
    if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch)) *out = static_cast<IDispatch*>(this);
    if (has_events && IsEqualIID(id, IID_IConnectionPointContainer))
        *out = static_cast<IConnectionPointContainer*>(this);
    if (has_events && IsEqualIID(id, IID_IConnectionPoint)) *out = static_cast<IConnectionPoint*>(this);
    if (IsEqualIID(id, recorded_object)) *out = static_cast<RecordedObject*>(this);
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG RecordingObject::Release() {
    const auto left = static_cast<ULONG>(--references_);
    if (left == 0) delete this;
    return left;
}

HRESULT RecordingObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT RecordingObject::GetTypeInfo(UINT, LCID, ITypeInfo** type) {
    *type = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT RecordingObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    const std::string member = to_utf8(std::wstring_view(names[0]));
    const auto* row = std::find_if(std::begin(members), std::end(members),
                                   [&](const Member& m) { return m.object == object_ && m.name == member; });
    ids[0] = row == std::end(members) ? DISPID_UNKNOWN : static_cast<DISPID>(row - members + 1);
    for (UINT i = 1; i < count; ++i)
        ids[i] = argument_id(to_utf8(std::wstring_view(names[i])));
    return row == std::end(members) ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT RecordingObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                EXCEPINFO* raised, UINT*) {
    const bool is_enumeration = id == DISPID_NEWENUM;
    if (is_enumeration && !collection()) return DISP_E_MEMBERNOTFOUND;
    const Member& member = is_enumeration ? enumeration : members[id - 1];
    const SentArguments sent(*parameters);
    if (const std::wstring file = sent.file(); !file.empty()) scene_->see(file);
    const Ending ending = scene_->act(object_ + "." + std::string(member.name) + "(" + sent.described() +
                                      ") " + flags_text(flags));
    if (ending != Ending::good) return end_badly(ending, refusal_of(object_), raised);
    act(member.does, sent);
    if (result == nullptr) return S_OK;
    if (is_enumeration) {
        result->punkVal = new_elements();
        result->vt = VT_UNKNOWN;
    } else {
        put_result(member.result, *result);
    }
    return S_OK;
}

const Collection* RecordingObject::collection() const {
    const auto* found = std::find_if(std::begin(collections), std::end(collections),
                                     [&](const Collection& known) { return known.object == object_; });
    return found == std::end(collections) ? nullptr : found;
}

IUnknown* RecordingObject::new_elements() {
    std::vector<Elements::Maker> makers;
    for (const std::string_view element : collection()->elements)
        makers.emplace_back(
            [scene = scene_, element] { return new RecordingObject(std::string(element), scene, false); });
    return new Elements(std::move(makers));
}

void RecordingObject::put_result(std::string_view told, VARIANT& result) {
    if (told == "1") {
        result.vt = VT_I2;
        result.iVal = 1;
    } else if (told == "busy") {
        result.vt = VT_BOOL;
        result.boolVal = std::exchange(busy_, false) ? VARIANT_TRUE : VARIANT_FALSE;
    } else if (told.starts_with('"')) {
        result.bstrVal = platform::win32::Bstr(told.substr(1, told.size() - 2)).release();
        result.vt = VT_BSTR;
    } else if (!told.empty()) {
        result.pdispVal = new RecordingObject(std::string(told), scene_, false);
        result.vt = VT_DISPATCH;
    }
}

void RecordingObject::act(Does does, const SentArguments& sent) {
    switch (does) {
        case Does::nothing:
            break;
        case Does::prints:
            print(sent, true);
            break;
        case Does::prints_without_notice:
            print(sent, false);
            break;
        case Does::saves:
            make_file(sent.file());
            break;
        case Does::converts:
            convert(*sent.at(0), *sent.at(1));
            break;
        case Does::launches:
            show_in_acrobat(pdf_name(sent.file()));
            break;
        case Does::runs_menu_item:
            run_menu_item(*scene_, sent.text(0));
            break;
        case Does::exits:
            empty_acrobat(scene_);
            break;
        case Does::transfers:
            busy_ = true;
            transfer(sent.text(1));
            break;
    }
}

void RecordingObject::print(const SentArguments& sent, bool with_notice) {
    for (const char* name : {"Outputfilename", "PrToFilename", "PrintToFile"})
        if (const VARIANT* file = sent.named(name); file != nullptr && file->vt == VT_BSTR)
            return make_file(file->bstrVal);
    print_to_pdf(*scene_, with_notice);
}

void RecordingObject::convert(const VARIANT& input, const VARIANT& output) {
    std::istringstream postscript(read_file(input.bstrVal));
    bool fails = false;
    raise_event(1, {input, output});
    for (std::string line; std::getline(postscript, line);) {
        while (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.ends_with(" prun")) scene_->note(object_ + " runs " + line);
        if (line.starts_with("%log ")) raise_event(4, {text_variant(line.substr(5))});
        if (line == "%fail") fails = true;
    }
    raise_event(5, {number_variant(50)});
    raise_event(6, {number_variant(1)});
    if (!fails) make_file(output.bstrVal);
    raise_event(fails ? 3 : 2, {input, output});
}

void RecordingObject::raise_event(int number, std::vector<VARIANT> arguments) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    const DISPID id = has_type_library() ? 27 - number : number;
    // A sink may leave, and its client let go of this object, while it is being told.
    using platform::win32::ComPointer;
    const auto alive = ComPointer<IDispatch>::share(this);
    std::map<DWORD, ComPointer<IDispatch>> listening;
    for (const auto& [cookie, sink] : sinks_)
        listening.emplace(cookie, ComPointer<IDispatch>::share(sink));
    for (const auto& [cookie, sink] : listening) {
        if (!sinks_.contains(cookie)) continue;
        sink->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
    }
}

HRESULT RecordingObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
    *points = new OnePoint(*this);
    return S_OK;
}

HRESULT RecordingObject::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
    *point = nullptr;
    if (!IsEqualIID(id, distiller_events)) return CONNECT_E_NOCONNECTION;
    *point = this;
    AddRef();
    return S_OK;
}

HRESULT RecordingObject::GetConnectionInterface(IID* id) {
    *id = distiller_events;
    return S_OK;
}

HRESULT RecordingObject::GetConnectionPointContainer(IConnectionPointContainer** container) {
    *container = this;
    AddRef();
    return S_OK;
}

HRESULT RecordingObject::Advise(IUnknown* sink, DWORD* cookie) {
    IDispatch* dispatch = nullptr;
    if (FAILED(sink->QueryInterface(distiller_events, reinterpret_cast<void**>(&dispatch))) &&
        FAILED(sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch))))
        return CONNECT_E_CANNOTCONNECT;
    if (scene_->act("listen to " + object_) != Ending::good) {
        dispatch->Release();
        return CONNECT_E_CANNOTCONNECT;
    }
    *cookie = next_cookie_++;
    sinks_[*cookie] = dispatch;
    return S_OK;
}

HRESULT RecordingObject::Unadvise(DWORD cookie) {
    const auto sink = sinks_.find(cookie);
    if (sink == sinks_.end()) return CONNECT_E_NOCONNECTION;
    sink->second->Release();
    sinks_.erase(sink);
    scene_->note("stop listening to " + object_);
    return S_OK;
}

HRESULT RecordingObject::EnumConnections(IEnumConnections** connections) {
    *connections = nullptr;
    return E_NOTIMPL;
}

}  // namespace foliant::tests::servers
