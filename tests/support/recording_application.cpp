// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// An application that other programs can automate, and that notes down what they ask of it. It knows every member by
// whatever name: to read one gives another object, to set one or to call it succeeds. Only sheets are counted and have
// names; there are three at first. It ends when nobody has an object of it any more.
//
// Usage: kavo_recording_application NUMBER LOG [refuse MEMBER | die MEMBER]   (NUMBER: its class, as registered)

#include <array>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <objbase.h>
#include <oleauto.h>
#include <shellapi.h>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string utf8(const wchar_t* text, int length)
{
    std::string result(static_cast<std::size_t>(4 * length), '\0');
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text, length, result.data(), static_cast<int>(result.size()),
                                           nullptr, nullptr);
    result.resize(static_cast<std::size_t>(size));
    return result;
}

std::string utf8(const std::wstring& text)
{
    return utf8(text.data(), static_cast<int>(text.size()));
}

/// What a test wants of this run, and what came of it.
struct Run
{
    std::ofstream log;
    std::wstring refused;
    std::wstring deadly;
    std::vector<std::wstring> names;  ///< by their numbers, from 1
    int objects = 0;
    int sheets = 3;

    void note(const std::string& line) { log << line << "\n" << std::flush; }
};

Run run;

std::string textOf(const VARIANT& value)
{
    switch (value.vt) {
    case VT_BSTR: return utf8(value.bstrVal, static_cast<int>(::SysStringLen(value.bstrVal)));
    case VT_I4: return "#" + std::to_string(value.lVal);
    case VT_R4: {
        std::ostringstream text;
        text << std::fixed << std::setprecision(1) << value.fltVal;
        return text.str();
    }
    case VT_BOOL: return value.boolVal != VARIANT_FALSE ? "true" : "false";
    case VT_EMPTY: return "empty";
    default: return "a value of kind " + std::to_string(value.vt);
    }
}

bool isArray(const VARIANT& value)
{
    return value.vt == (VT_ARRAY | VT_VARIANT);
}

std::string cellLine(LONG row, LONG column, const VARIANT& value)
{
    return "\ncell " + std::to_string(row) + " " + std::to_string(column) + " " + textOf(value);
}

/// Each value of a table that is not empty on a line of its own: "cell row column value".
std::string linesOfTable(SAFEARRAY& table)
{
    std::string lines = "table";
    std::array<LONG, 2> last{};
    ::SafeArrayGetUBound(&table, 1, &last[0]);
    ::SafeArrayGetUBound(&table, 2, &last[1]);
    for (std::array<LONG, 2> place = {1, 1}; place[0] <= last[0]; ++place[0])
        for (place[1] = 1; place[1] <= last[1]; ++place[1]) {
            VARIANT value;
            ::VariantInit(&value);
            ::SafeArrayGetElement(&table, place.data(), &value);
            if (value.vt != VT_EMPTY) lines += cellLine(place[0], place[1], value);
            ::VariantClear(&value);
        }
    return lines;
}

/// The same of a list of lists, with a line of its own for what comes behind it.
std::string linesOfList(SAFEARRAY& list, LONG row = 0)
{
    std::string lines = row == 0 ? "list" : "";
    LONG last = -1;
    ::SafeArrayGetUBound(&list, 1, &last);
    for (LONG place = 0; place <= last; ++place) {
        VARIANT value;
        ::VariantInit(&value);
        ::SafeArrayGetElement(&list, &place, &value);
        lines += isArray(value) ? linesOfList(*value.parray, place + 1) : cellLine(row, place + 1, value);
        ::VariantClear(&value);
    }
    if (row == 0 && last >= 0) lines += "\n";
    return lines;
}

std::string argumentsOf(const DISPPARAMS& parameters)
{
    std::string text;
    for (UINT i = parameters.cArgs; i > 0; --i) {  // they come in reverse order
        const VARIANT& value = parameters.rgvarg[i - 1];
        if (!text.empty()) text += ";";
        if (!isArray(value))
            text += textOf(value);
        else
            text += ::SafeArrayGetDim(value.parray) == 2 ? linesOfTable(*value.parray) : linesOfList(*value.parray);
    }
    return text;
}

class RecordedObject final : public IDispatch
{
public:
    explicit RecordedObject(std::string path) : m_path(std::move(path)) { ++run.objects; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool isKnown = id == IID_IUnknown || id == IID_IDispatch;
        *object = isKnown ? this : nullptr;
        if (isKnown) AddRef();
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) override
    {
        for (UINT i = 0; i < count; ++i) {
            run.names.emplace_back(names[i]);
            numbers[i] = static_cast<DISPID>(run.names.size());
        }
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO*, UINT*) override
    {
        const std::wstring& name = run.names.at(static_cast<std::size_t>(member) - 1);
        if (name == run.deadly) std::_Exit(1);
        if (name == run.refused) return DISP_E_MEMBERNOTFOUND;
        const std::string whole = m_path + "." + utf8(name);
        const std::string arguments = argumentsOf(*parameters);
        if (kind == DISPATCH_PROPERTYPUT)
            run.note("set " + whole + "=" + arguments);
        else if (kind == DISPATCH_METHOD)
            call(name, whole + "(" + arguments + ")");
        else
            answer(name, arguments.empty() ? whole : whole + "(" + arguments + ")", *result);
        return S_OK;
    }

private:
    static void call(const std::wstring& name, const std::string& whole)
    {
        run.note("call " + whole);
        if (name == L"removeByName") --run.sheets;
    }

    static void answer(const std::wstring& name, const std::string& whole, VARIANT& result)
    {
        run.note("get " + whole);
        if (name == L"getCount") {
            result.vt = VT_I4;
            result.lVal = run.sheets;
        } else if (name == L"getName") {
            result.vt = VT_BSTR;
            result.bstrVal = ::SysAllocString((L"Sheet" + std::to_wstring(run.sheets)).c_str());
        } else {
            result.vt = VT_DISPATCH;
            result.pdispVal = new RecordedObject(whole);
        }
    }

    ~RecordedObject()
    {
        if (--run.objects > 0) return;
        run.note("released");
        ::PostQuitMessage(0);
    }

    std::string m_path;
    ULONG m_references = 1;
};

class Factory final : public IClassFactory
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool isKnown = id == IID_IUnknown || id == IID_IClassFactory;
        *object = isKnown ? this : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override
    {
        auto* application = new RecordedObject("Application");
        const HRESULT status = application->QueryInterface(id, object);
        application->Release();
        return status;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

}  // namespace

int main()
{
    int count = 0;
    wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    CLSID number{};
    if (count < 3 || FAILED(::CLSIDFromString(words[1], &number))) return 2;
    run.log.open(utf8(words[2]), std::ios::binary | std::ios::app);
    for (int i = 3; i + 1 < count; i += 2) {
        if (std::wstring(words[i]) == L"refuse") run.refused = words[i + 1];
        if (std::wstring(words[i]) == L"die") run.deadly = words[i + 1];
    }
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Factory factory;
    DWORD registration = 0;
    if (FAILED(::CoRegisterClassObject(number, &factory, CLSCTX_LOCAL_SERVER, REGCLS_SINGLEUSE, &registration)))
        return 1;
    constexpr UINT kLongestRun = 120'000;  // milliseconds, should nobody come
    ::SetTimer(nullptr, 0, kLongestRun, [](HWND, UINT, UINT_PTR, DWORD) { ::PostQuitMessage(1); });
    MSG message;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
    ::CoRevokeClassObject(registration);
    ::CoUninitialize();
    return 0;
}
