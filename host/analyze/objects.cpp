// The objects of a design: registration, look-up, walking, selection marks.
#include "design.h"

#include "../../base/text.h"
#include "../../base/gdi.h"
#include "../../base/banned.h"

HOSTINFO* a_FindRootHostinfo(HOSTINFO* obj)
{
    while (obj && obj->m_pHost)
        obj = obj->m_pHost;
    return obj;
}

HOSTINFO* a_FindHostinfo(LPCSTR name)
{
    if (!name)
        return NULL;
    for (DESIGN* design : OpenDesigns())
        if (HOSTINFO* obj = static_cast<HOSTINFO*>(design->byName.Lookup(name)))
            return obj;
    return NULL;
}

BOOL a_EnumHostinfo(HOSTINFOVISITOR visit, void* context)
{
    if (!visit)
        return FALSE;
    for (DESIGN* design : OpenDesigns()) {
        for (HOSTINFO* obj : design->objects.Items())
            if (!visit(obj, context))
                return FALSE;
    }
    return TRUE;
}

BOOL a_IsClass(HOSTINFO* obj, LPCSTR className)
{
    char name[256] = "";
    return obj && className && obj->m_hWnd && IsWindow(obj->m_hWnd) &&
           GetClassNameA(obj->m_hWnd, name, sizeof name) && strcmp(name, className) == 0;
}

BOOL a_InitializeHostinfo(HOSTINFO* obj, HWND hwnd, const HOSTCREATE* create)
{
    if (!obj)
        return FALSE;
    obj->m_hWnd = hwnd;
    if (!create)
        return TRUE;
    CopyText(obj->m_szName, create->name);
    obj->m_pHost = create->host;
    obj->m_hNotify = create->notify;
    SetRect(&obj->m_rect, create->x, create->y, create->x + create->cx, create->y + create->cy);
    return TRUE;
}

BOOL a_AddHostinfo(HOSTINFO* host, HOSTINFO* obj)
{
    DESIGN* design = DesignOf(host);
    if (!design || !obj)
        return FALSE;
    const double start = HostMilliseconds();
    if (design->objects.Add(obj))
        obj->m_nConsoleNumber = ++design->objectsAdded;
    obj->m_wMode = design->mode;
    design->registering += HostMilliseconds() - start;
    return TRUE;
}

void a_HostinfoCreated(HOSTINFO* root, HOSTINFO* obj)
{
    DESIGN* design = FindDesign(root);
    if (!design || !obj)
        return;
    const double start = HostMilliseconds();
    design->byName.Add(obj->m_szName, obj);
    design->registering += HostMilliseconds() - start;
}

void a_HostinfoDestroyed(HOSTINFO* root, HOSTINFO* obj)
{
    DESIGN* design = FindDesign(root);
    if (design && obj && design->byName.Lookup(obj->m_szName) == obj)
        design->byName.Remove(obj->m_szName);
}

void a_CleanHostinfo(HOSTINFO* obj)
{
    if (!obj)
        return;
    a_EmptyStringList(&obj->m_connections);
    delete obj->m_pChildTable;
    obj->m_pChildTable = NULL;
}

BOOL a_RemoveHostinfo(HOSTINFO* host, HOSTINFO* obj)
{
    DESIGN* design = DesignOf(host);
    if (!design)
        return FALSE;
    return design->objects.Remove(obj) ? TRUE : FALSE;
}

namespace {
BOOL CALLBACK DestroyChild(HWND hwnd, LPARAM parent)
{
    if (GetParent(hwnd) == (HWND)parent)
        DestroyWindow(hwnd);
    return TRUE;
}
}  // namespace

void a_DestroyChildWindows(HOSTINFO* obj)
{
    if (!obj || !obj->m_hWnd)
        return;
    EnumChildWindows(obj->m_hWnd, DestroyChild, (LPARAM)obj->m_hWnd);
    if (obj->m_pChildTable)
        obj->m_pChildTable->RemoveAll();
}

void a_DrawSelection(HOSTINFO* obj, HDC hdc)
{
    DESIGN* design = DesignOf(obj);
    if (!design || !obj->m_hWnd || design->selection != obj)
        return;
    RECT client;
    GetClientRect(obj->m_hWnd, &client);
    const int mark = 5;
    const POINT corners[] = {{client.left, client.top},
                             {client.right - mark, client.top},
                             {client.left, client.bottom - mark},
                             {client.right - mark, client.bottom - mark}};
    // Marks that stand out on light and dark faces alike.
    Brush fill(CreateSolidBrush(RGB(0x00, 0x78, 0xD7)));
    for (const POINT& corner : corners) {
        RECT box = {corner.x, corner.y, corner.x + mark, corner.y + mark};
        FillRect(hdc, &box, (HBRUSH)GetStockObject(WHITE_BRUSH));
        InflateRect(&box, -1, -1);
        FillRect(hdc, &box, fill);
    }
}

BOOL a_SetSelection(HOSTINFO* root, HOSTINFO* obj)
{
    DESIGN* design = FindDesign(root);
    if (!design)
        return FALSE;
    HOSTINFO* previous = design->selection;
    design->selection = obj;
    if (previous && previous->m_hWnd)
        InvalidateRect(previous->m_hWnd, NULL, TRUE);
    if (obj && obj->m_hWnd)
        InvalidateRect(obj->m_hWnd, NULL, TRUE);
    return TRUE;
}

HOSTINFO* a_GetSelection(HOSTINFO* root)
{
    DESIGN* design = FindDesign(root);
    return design ? design->selection : NULL;
}

BOOL a_SetDesignMode(HOSTINFO* root, WORD mode)
{
    DESIGN* design = FindDesign(root);
    if (!design)
        return FALSE;
    design->mode = mode;
    design->objects.ForEach([mode](HOSTINFO* obj) { obj->m_wMode = mode; });
    return TRUE;
}
