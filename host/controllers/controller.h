// Simulated system controllers ("ORNCON_n" of family A, "ELKCON_n" of family
// B): the partner objects of connected consoles. A controller has console
// ports on one CAN bus (the first is its console module "DOVRIXCSTModule")
// and keeps a SIMDEVICE per console, serving their variables and its own.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "analyze.h"
#include "simdevice.h"
#include "simupload.h"

class CONTROLLER;

// The controller's console module, a host object of its own named
// "CONTROLLER.DOVRIXCSTModule": variables asked of it are the controller's.
class CONSOLEMODULE final : public HOSTINFO {
public:
    LRESULT OnMessage(WPARAM wParam, LPARAM request) override;
    CONTROLLER* controller = nullptr;
};

class CONTROLLER final : public HOSTINFO {
public:
    CONTROLLER();
    ~CONTROLLER();

    LRESULT OnLoad(WPARAM mode, LPARAM line) override;
    LRESULT OnSave(WPARAM pass, LPARAM file) override;
    LRESULT OnMessage(WPARAM, LPARAM request) override;
    BOOL OnConnectSource(LPCSTR source, LPCSTR params) override;
    BOOL OnDisconnectSource(LPCSTR source, LPCSTR params) override;
    BOOL OnIsAlive(WPARAM, LPARAM console) override;

    // Names the console module after the controller, once the name is known.
    void AttachModule();
    // WM_HOST_CHANGEADDRESS: LOWORD old address, HIWORD new one; non-zero when moved.
    LRESULT MoveConsole(WPARAM addresses, HOSTINFO* console);
    // Requests for "CONSOLE.keyNNN"; -1 when the name is not one.
    LRESULT KeyRecordRequest(REQUEST* r, const std::string& name);
    // Bit n set: address n (1..16) is free on this controller's bus.
    int FreeAddresses() const;
    bool FaultLed() const;
    SIMDEVICE* Device(const std::string& console, bool create);
    // Sets a variable as the device itself would change it (simulation).
    bool Simulate(const std::string& variable, int value);
    // A key of the consoles behind the console module goes down or up.
    bool PressKey(const std::string& keyword, const std::string& value);
    // The lists the controller offers the consoles' editor ("Matrix.SystemZones"
    // ...), read as text; -1 when the name is not one of them.
    LRESULT ListRequest(REQUEST* r, const std::string& name);
    // The firmware-update variables of the controller.
    LRESULT UploadRequest(REQUEST* r, const std::string& name);
    // Brings the upload's states up to the host's time.
    void AdvanceUpload();

    std::vector<std::string> ports;
    int baudrate = 125;
    int monitoring = 0;   // "SystemMonitoringOnEmergency"
    int localSource = 0;  // "ProgramLocalSorceConfig"
    int online = 1;       // the controller's own link
    std::map<std::string, SIMDEVICE> devices;  // by console object name
    CONSOLEMODULE module;
    std::string password = "ZEL4000";  // the firmware-update password
    // The system's lists by their design keyword ("zones" ...), as the design
    // gave them: comma-separated items, messages as "NAME|NUMBER".
    std::map<std::string, std::string> lists;
    struct {
        bool active = false;
        bool refused = false;  // a wrong password or a missing file
        bool applied = false;  // the new firmware is in the device
        UPLOADREQUEST request;
        std::string console;   // the console being updated
        uint32_t start = 0;
        int overall = 0;       // "ZEL4000.FirmwareUpdateState"
    } upload;
    // Set when the controller's window is gone (see RetireController).
    bool deleted = false;
};

// The controller behind a host object, when it is one.
CONTROLLER* AsController(HOSTINFO* obj);
// Registers the window classes "ORNCON" and "ELKCON" (once).
void RegisterControllerClasses(HINSTANCE instance);
// A deleted controller: consoles may still hold it as their partner, so it
// stays allocated, answering nothing, until the simulation unloads.
void RetireController(CONTROLLER* controller);
void FreeRetiredControllers();
