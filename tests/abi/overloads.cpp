// abioverloads.dll: an object built by GCC as the plug-ins are, whose
// overloaded virtual operations each answer a value of their own. The host
// built by Microsoft's compiler calls every form through its own reading of
// HOSTINFO's table; a form that lands in another answers another value, or
// finds its arguments wrong and answers the negative of its own.
#include <string.h>

#include "analyze.h"

namespace {

bool Named(LPCSTR name) { return name && strcmp(name, "probe") == 0; }

class OVERLOADS : public HOSTINFO {
public:
    BOOL OnGet(LPCSTR name, int* value) override { return Answer(Named(name) && value, 11); }
    BOOL OnGet(LPCSTR name, double* value) override { return Answer(Named(name) && value, 12); }
    BOOL OnGet(LPCSTR name, LPSTR text, int size) override { return Answer(Named(name) && text && size == 3, 13); }
    BOOL OnGet(LPCSTR name, LPSTR text, int size, int index) override
    {
        return Answer(Named(name) && text && size == 3 && index == 4, 14);
    }
    BOOL OnSet(LPCSTR name, const void* block, int size) override { return Answer(Named(name) && block && size == 5, 21); }
    BOOL OnSet(LPCSTR name, int value) override { return Answer(Named(name) && value == 6, 22); }
    BOOL OnSet(LPCSTR name, double value) override { return Answer(Named(name) && value == 2.5, 23); }
    BOOL OnSet(LPCSTR name, LPCSTR text) override { return Answer(Named(name) && text && strcmp(text, "t") == 0, 24); }
    BOOL OnSet(LPCSTR name, LPCSTR text, int index) override
    {
        return Answer(Named(name) && text && strcmp(text, "t") == 0 && index == 7, 25);
    }
    BOOL OnConnectSource(LPCSTR source, LPCSTR params) override { return Answer(Named(source) && Params(params), 31); }
    BOOL OnConnectSource(HOSTINFO* source, LPCSTR params) override { return Answer(source == this && Params(params), 32); }
    BOOL OnConnectTarget(LPCSTR target, LPCSTR params) override { return Answer(Named(target) && Params(params), 33); }
    BOOL OnChangeAddress(LPCSTR source, LPCSTR params) override { return Answer(Named(source) && Params(params), 41); }
    BOOL OnChangeAddress(HOSTINFO* source, LPCSTR params) override { return Answer(source == this && Params(params), 42); }
    BOOL OnDisconnectSource(LPCSTR source, LPCSTR params) override { return Answer(Named(source) && Params(params), 51); }
    BOOL OnDisconnectSource(HOSTINFO* source, LPCSTR params) override
    {
        return Answer(source == this && Params(params), 52);
    }
    // The neighbours of the overloads, to catch a table shifted by one.
    LRESULT OnUpdate(WPARAM, LPARAM) override { return 60; }
    HOSTINFO* OnGetHostinfo(LPCSTR) override { return this; }

private:
    static bool Params(LPCSTR params) { return params && strcmp(params, "1,16") == 0; }
    static BOOL Answer(bool argumentsRight, BOOL value) { return argumentsRight ? value : -value; }
};

}  // namespace

extern "C" __declspec(dllexport) HOSTINFO* CreateOverloads()
{
    return new OVERLOADS;
}

extern "C" __declspec(dllexport) void DestroyOverloads(HOSTINFO* object)
{
    delete static_cast<OVERLOADS*>(object);
}
