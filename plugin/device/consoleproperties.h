// CONSOLEPROPERTIES: one paging console of the design. The device canvas owns
// it; the host reaches it through the canvas's WM_APP messages.
#pragma once

#include "analyze.h"

#include "connectionlist.h"
#include "consolesettings.h"
#include "keywordtable.h"
#include "../keys/keyrecord.h"

struct CONSOLEUNDO;

class CONSOLEPROPERTIES final : public HOSTINFO {
public:
    CONSOLEPROPERTIES();
    ~CONSOLEPROPERTIES();

    LRESULT OnLoad(WPARAM mode, LPARAM line) override;
    LRESULT OnSave(WPARAM pass, LPARAM file) override;
    LRESULT OnSaveToListCtrl(WPARAM, LPARAM listView) override;
    LRESULT OnTimer(WPARAM, LPARAM) override;
    LRESULT OnMessage(WPARAM, LPARAM request) override;
    BOOL OnGetUserfriendlyName(LPSTR text, int size) override;

    bool IsOnline() const { return (m_wFlags & HOSTFLAG_ONLINE) != 0; }
    // Feeds "keyword=value" to OnLoad as an edit (mode 0).
    LRESULT LoadEdit(const char* line);
    void RefreshCanvas(bool erase);
    // A change made outside OnLoad (the console view's toolbar): the design
    // is edited and the host hears of it.
    void MarkEdited();
    // Tells the console view and the control panel, when they are open.
    void NotifyConsoleView(UINT message, WPARAM wParam, LPARAM lParam);
    // A talk key must use an audio input the console's model has. The design
    // file names the model after the keys, so loading only notes that the
    // check is due and the canvas runs it once the lines are all in; an edit
    // of a key or of the model checks at once.
    void AudioInputsDue(WPARAM mode);
    void CheckAudioInputs();
    // The frame the PTT key shows on the fronts: 2 while its LED is lit, else 1.
    int GlobalIndicatorState() const;

    KEYSLOT m_keys[CONSOLE_KEY_COUNT];
    KEYSLOT m_numericKeys[CONSOLE_NUMERICKEY_COUNT];
    uint8_t m_optionStates[3];    // keys 120 to 122: 0 absent, 1 ordinary key, 2 lock switch
    CONSOLESETTINGS m_settings;
    char m_szDisplayName[DISPLAYNAME_SIZE];
    int32_t m_model;              // model index, see ModelText()
    uint8_t m_masterFault;        // last "MasterFault" read
    uint8_t m_online;             // last answer of the partner's OnIsAlive
    DWORD m_lastPoll;             // tick of the last OnTimer poll
    HOSTINFO* m_pPartner;         // the controller port the device is reached through
    bool m_oldProject;            // the design predates the test fault mask
    bool m_migrationDone;
    HWND m_hConfiguration;        // the configuration window, when open
    HWND m_hConsoleView;          // the console view showing this console, when open
    HWND m_hControlPanel = NULL;  // its control panel, when open
    uint8_t m_ledStates[CONSOLE_KEY_COUNT];  // the face's LEDs as the device lights them
    int32_t m_slot;               // the port's slot, as last read
    int32_t m_faultLed;           // canvas poll caches
    uint8_t m_reportFaultsCache;
    bool m_audioCheckDue;         // posted DCM_LINESLOADED not yet handled
    // The configuration window's memory: the tab to reopen and where it stood.
    int32_t m_configurationTab = 0;
    bool m_configurationOpen = false;
    bool m_hasConfigurationPlacement = false;
    WINDOWPLACEMENT m_configurationPlacement = {};
    POINT m_configurationPosition = {};
    uint8_t m_connectionOnline = 0;  // the connection's "online", as the Supervision page last read it
    // The key whose editor page the configuration window shows (-1 none), and
    // the mark that it changed: the window rebuilds the page on its first
    // tick after the mark (it takes the mark down).
    int32_t m_selectedKey = -1;
    bool m_keyChangeMark = false;
    // The undo history of the keys while the configuration window is open
    // (keyundo.h), else null.
    CONSOLEUNDO* m_undo = nullptr;
    void SelectKeyForEditor(int key)
    {
        m_selectedKey = key;
        m_keyChangeMark = true;
    }

private:
    CONSOLEPROPERTIES(const CONSOLEPROPERTIES&);
    CONSOLEPROPERTIES& operator=(const CONSOLEPROPERTIES&);
    void ReadForSave(const KEYWORDENTRY& entry, char* value, size_t size);
    // The overrides' bodies; the overrides themselves (consoleentries.cpp)
    // keep anything thrown from reaching the host.
    LRESULT LoadLine(WPARAM mode, LPARAM line);
    LRESULT SaveLines(WPARAM pass, LPARAM file);
    LRESULT FillList(WPARAM, LPARAM listView);
    LRESULT Poll(WPARAM, LPARAM);
    LRESULT ServeRequest(WPARAM, LPARAM request);
    BOOL FriendlyName(LPSTR text, int size);
};

// The properties object behind a host object, when it is a console.
CONSOLEPROPERTIES* AsConsole(HOSTINFO* obj);
