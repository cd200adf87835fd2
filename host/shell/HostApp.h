// The host program.
#pragma once

#include <afxwin.h>

#include <memory>
#include <string>
#include <vector>

#include "automation/AutomatedHostApp.h"
#include "automation/Registration.h"
#include "shell/AddinLoader.h"
#include "shell/HostFrame.h"
#include "shell/ShellOptions.h"
#include "shell/ShellServices.h"
#include "shell/StepRunner.h"

namespace velmhost
{

// Brings model, automation, main window, add-ins and the steps of an unattended run together. Run by the
// framework it does what its command line says. A program with a main of its own makes one object, calls
// OpenShell, does what it wants while it pumps messages, and calls CloseShell; this may be repeated.
class CHostApp : public CAutomatedHostApp, private HostFrameSite
{
    // Construction
public:
    CHostApp();
    ~CHostApp() override;

    // Attributes
public:
    // The main window; null before OpenShell and after it was closed.
    CHostFrame* MainFrame() const { return m_frame; }
    CAddinLoader& Addins() { return m_addins; }
    const CAddinLoader& Addins() const { return m_addins; }
    // What items, buttons and the command line sent since OpenShell, exactly.
    const std::vector<std::wstring>& SentTexts() const { return m_sentTexts; }
    // What went wrong with add-ins and steps since OpenShell, and the texts of message boxes that were not
    // shown because nobody is to be asked; a sentence each.
    const std::vector<std::wstring>& Complaints() const { return m_complaints; }
    // What the program will return; see ShellOptions::HelpText.
    int ExitStatus() const { return m_exitStatus; }

    // Operations
public:
    // Opens the main window (shown with `showCommand`, as for ShowWindow) over the model, in whose base group
    // the host's own menu is made if its bar is empty. Of the options it takes size, button size, batch and
    // noRegister. False when it is open or cannot be opened. Initialises COM for the thread until CloseShell.
    bool OpenShell(const ShellOptions& options, int showCommand);
    // Stops add-ins and steps and destroys the window. Does nothing when it is not open. The model stays.
    void CloseShell();
    // Loads an add-in. On failure complains: in the history, and in a message box, in batch mode instead on
    // standard error.
    bool LoadAddin(const std::wstring& fileName);
    // Begins to make steps, and returns. They go on while messages are pumped.
    bool StartSteps(const std::vector<Step>& steps);
    // Makes steps and pumps messages until they are made. A menu that is open then is closed, for the pump is
    // in its loop. True when all could be made.
    bool RunSteps(const std::vector<Step>& steps);
    // Empties SentTexts and Complaints.
    void ForgetTexts();
    // One line for each text sent, control characters visible, each ended by a line feed.
    std::wstring HistoryOfTexts() const;

    // Overridables
public:
    BOOL InitInstance() override;
    int ExitInstance() override;
    // In batch mode nothing is shown: the text is printed and complained of, and the answer is the default
    // button's.
    int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt) override;

    // Implementation
private:
    void OnCommandText(const std::wstring& text) override;
    bool OnFrameClosing() override;
    void OnFrameDestroyed() override;

    bool RunWithoutShell();
    bool Fail(int status, const std::wstring& message);
    void MakeBaseMenu();
    void UnloadAddins();
    void Complain(const std::wstring& sentence);
    void OnStepFailed(const std::wstring& step, const std::wstring& reason);
    void OnStepsFinished();
    void PrintHistoryOnce();

    ShellOptions m_options;
    ShellServices m_services;
    CAddinLoader m_addins;
    CHostFrame* m_frame = nullptr;
    std::unique_ptr<HostRegistration> m_registration;
    CStepRunner m_steps;
    bool m_comInitialised = false;
    bool m_runsProgram = false; // by the framework, from a command line
    bool m_historyPrinted = false;
    std::vector<std::wstring> m_sentTexts;
    std::vector<std::wstring> m_complaints;
    int m_exitStatus = 0;
};

} // namespace velmhost
