// Owners of GDI handles: every object, selection and device context the
// painters make is given back when its owner goes out of scope.
#pragma once

#include <windows.h>

// A GDI object (pen, brush, font, bitmap) deleted with its owner.
template <class HANDLE_TYPE>
class GdiObject {
public:
    explicit GdiObject(HANDLE_TYPE handle = NULL) : m_handle(handle) {}
    ~GdiObject()
    {
        if (m_handle)
            DeleteObject(m_handle);
    }
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    operator HANDLE_TYPE() const { return m_handle; }
    HANDLE_TYPE Get() const { return m_handle; }
    // Takes another handle; the one held before is deleted.
    void Reset(HANDLE_TYPE handle = NULL)
    {
        if (m_handle && m_handle != handle)
            DeleteObject(m_handle);
        m_handle = handle;
    }

private:
    HANDLE_TYPE m_handle;
};

typedef GdiObject<HBRUSH> Brush;
typedef GdiObject<HPEN> Pen;
typedef GdiObject<HFONT> FontHandle;
typedef GdiObject<HBITMAP> Bitmap;

// An object selected into a DC; the previous one is selected back.
class Selection {
public:
    Selection(HDC hdc, HGDIOBJ object) : m_hdc(hdc), m_previous(SelectObject(hdc, object)) {}
    ~Selection() { SelectObject(m_hdc, m_previous); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

private:
    HDC m_hdc;
    HGDIOBJ m_previous;
};

// A memory DC compatible with another, deleted with its owner.
class MemoryDC {
public:
    explicit MemoryDC(HDC compatible) : m_hdc(CreateCompatibleDC(compatible)) {}
    ~MemoryDC() { DeleteDC(m_hdc); }
    MemoryDC(const MemoryDC&) = delete;
    MemoryDC& operator=(const MemoryDC&) = delete;
    operator HDC() const { return m_hdc; }

private:
    HDC m_hdc;
};

// A window's (or the screen's, for null) DC, released with its owner.
class WindowDC {
public:
    explicit WindowDC(HWND hwnd) : m_hwnd(hwnd), m_hdc(GetDC(hwnd)) {}
    ~WindowDC() { ReleaseDC(m_hwnd, m_hdc); }
    WindowDC(const WindowDC&) = delete;
    WindowDC& operator=(const WindowDC&) = delete;
    operator HDC() const { return m_hdc; }

private:
    HWND m_hwnd;
    HDC m_hdc;
};

// BeginPaint and EndPaint.
class PaintDC {
public:
    explicit PaintDC(HWND hwnd) : m_hwnd(hwnd), m_hdc(BeginPaint(hwnd, &m_paint)) {}
    ~PaintDC() { EndPaint(m_hwnd, &m_paint); }
    PaintDC(const PaintDC&) = delete;
    PaintDC& operator=(const PaintDC&) = delete;
    operator HDC() const { return m_hdc; }

private:
    HWND m_hwnd;
    PAINTSTRUCT m_paint;
    HDC m_hdc;
};
