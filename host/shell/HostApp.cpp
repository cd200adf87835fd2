#include "shell/HostApp.h"

#include <shellapi.h>

#include "model/ModelPrinter.h"
#include "shell/CommandText.h"
#include "shell/Console.h"

namespace velmhost
{

namespace
{

enum ExitStatusValue
{
    kBadUse = 1,
    kAddinFailed = 2,
    kStepFailed = 3
};

std::vector<std::wstring> ProgramArguments()
{
    std::vector<std::wstring> arguments;
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> list(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
    for (int i = 1; list && i < count; ++i)
        arguments.emplace_back(list.get()[i]);
    return arguments;
}

// The answer that Enter gives to a message box.
int DefaultAnswer(UINT type)
{
    static const int kAnswers[][3] = {{IDOK, IDOK, IDOK},
                                      {IDOK, IDCANCEL, IDOK},
                                      {IDABORT, IDRETRY, IDIGNORE},
                                      {IDYES, IDNO, IDCANCEL},
                                      {IDYES, IDNO, IDYES},
                                      {IDRETRY, IDCANCEL, IDRETRY},
                                      {IDCANCEL, IDTRYAGAIN, IDCONTINUE}};
    const UINT buttons = type & MB_TYPEMASK;
    const UINT focus = (type & MB_DEFMASK) >> 8;
    return buttons < std::size(kAnswers) && focus < 3 ? kAnswers[buttons][focus] : IDOK;
}

} // namespace

CHostApp::CHostApp()
    : m_services(*this),
      m_steps([this](const std::wstring& step, const std::wstring& reason) { OnStepFailed(step, reason); },
              [this] { OnStepsFinished(); })
{
}

CHostApp::~CHostApp()
{
    CloseShell();
}

bool CHostApp::OpenShell(const ShellOptions& options, int showCommand)
{
    if (m_frame)
        return false;
    m_options = options;
    ForgetTexts();
    m_exitStatus = 0;
    m_comInitialised = SUCCEEDED(::CoInitialize(nullptr));
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&controls);
    if (options.largeButtons)
        Model().SetLargeButtons(true);
    MakeBaseMenu();

    m_frame = new CHostFrame(Model(), *this);
    if (!m_frame->CreateShell(options.width, options.height))
        return false;
    m_pMainWnd = m_frame;
    Automation().SetShell(&m_services);
    if (!options.noRegister)
        m_registration = std::make_unique<HostRegistration>(Automation().Application());
    m_frame->ShowWindow(showCommand);
    m_frame->UpdateWindow();
    return true;
}

void CHostApp::CloseShell()
{
    m_steps.Stop();
    if (m_frame) {
        UnloadAddins();
        // The framework ends the message loop with its main window; this end is not the program's.
        m_pMainWnd = nullptr;
        m_frame->DestroyWindow();
    }
    m_registration.reset();
    m_steps.DestroyWindow();
    if (m_comInitialised)
        ::CoUninitialize();
    m_comInitialised = false;
}

// The menu that every host has. Its item sends a command as any other item does.
void CHostApp::MakeBaseMenu()
{
    HostModel& model = Model();
    if (!model.MenuBar().empty() || model.Groups().empty())
        return;
    const ElementId menu = model.AddMenu(model.Groups().front()->id, L"&File").id;
    if (const MenuItem* exit = model.AddMenuItem(menu, kAtEnd, L"E&xit",
                                                 L"\x03\x03"
                                                 L"QUIT "))
        model.SetMenuItemHelp(exit->id, L"Closes the host");
    model.InsertInMenuBar(menu, kAtEnd);
}

bool CHostApp::LoadAddin(const std::wstring& fileName)
{
    std::wstring reason;
    if (m_addins.Load(fileName, reason)) {
        if (m_frame)
            m_frame->AddRemark(L"Loaded " + FilePart(m_addins.FileNames().back()) + L".");
        return true;
    }
    const std::wstring sentence = fileName + L" could not be loaded. " + reason;
    if (m_options.batch && m_exitStatus == 0)
        m_exitStatus = kAddinFailed;
    if (m_frame)
        m_frame->AddRemark(sentence);
    Complain(sentence);
    if (m_options.batch)
        PrintError(L"velmhost: " + sentence + L"\n");
    else
        AfxMessageBox(sentence.c_str(), MB_OK | MB_ICONEXCLAMATION);
    return false;
}

void CHostApp::UnloadAddins()
{
    for (const std::wstring& failure : m_addins.UnloadAll()) {
        Complain(failure);
        PrintError(L"velmhost: " + failure + L"\n");
    }
}

bool CHostApp::StartSteps(const std::vector<Step>& steps)
{
    return m_frame && m_steps.Start(*m_frame, steps);
}

bool CHostApp::RunSteps(const std::vector<Step>& steps)
{
    const std::size_t complaints = m_complaints.size();
    if (!StartSteps(steps))
        return false;
    while (m_steps.IsRunning() && PumpMessage()) {
    }
    return m_complaints.size() == complaints;
}

void CHostApp::ForgetTexts()
{
    std::vector<std::wstring>().swap(m_sentTexts);
    std::vector<std::wstring>().swap(m_complaints);
}

std::wstring CHostApp::HistoryOfTexts() const
{
    std::wstring history;
    for (const std::wstring& text : m_sentTexts)
        history += VisibleCommandText(text) + L"\n";
    return history;
}

BOOL CHostApp::InitInstance()
{
    CAutomatedHostApp::InitInstance();
    m_runsProgram = true;
    m_options = ShellOptions::Parse(ProgramArguments());
    if (RunWithoutShell())
        return FALSE;
    if (!OpenShell(ShellOptions(m_options), m_options.embedding ? SW_HIDE : m_nCmdShow)) {
        Fail(kBadUse, L"the main window cannot be opened");
        return FALSE;
    }
    for (const std::wstring& addin : m_options.addins)
        LoadAddin(addin);
    if (m_options.tree)
        PrintOutput(PrintModel(Model()));
    if (!m_options.steps.empty() || m_options.batch)
        StartSteps(m_options.steps);
    return TRUE;
}

// What needs no window. True when that was all.
bool CHostApp::RunWithoutShell()
{
    if (!m_options.error.empty())
        return Fail(kBadUse, m_options.error + L"; try --help");
    if (m_options.help) {
        PrintOutput(ShellOptions::HelpText());
        return true;
    }
    if (m_options.version) {
        PrintOutput(std::wstring(kHostName) + L" " VELM_VERSION L"\n");
        return true;
    }
    if (!m_options.registerServer && !m_options.unregisterServer)
        return false;
    const HRESULT result =
        m_options.registerServer ? RegisterHostClass(HostProgramFile()) : UnregisterHostClass();
    if (FAILED(result))
        Fail(kBadUse, SystemErrorText(static_cast<DWORD>(result)));
    return true;
}

bool CHostApp::Fail(int status, const std::wstring& message)
{
    m_exitStatus = status;
    PrintError(L"velmhost: " + message + L"\n");
    return true;
}

int CHostApp::ExitInstance()
{
    PrintHistoryOnce();
    CloseShell();
    CAutomatedHostApp::ExitInstance();
    return m_exitStatus;
}

int CHostApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt)
{
    if (!m_options.batch)
        return CAutomatedHostApp::DoMessageBox(lpszPrompt, nType, nIDPrompt);
    const std::wstring text = lpszPrompt ? lpszPrompt : L"";
    if (m_frame)
        m_frame->AddRemark(text);
    Complain(text);
    PrintError(L"velmhost: message: " + text + L"\n");
    return DefaultAnswer(nType);
}

void CHostApp::OnCommandText(const std::wstring& text)
{
    m_sentTexts.push_back(text);
    const std::wstring word = FirstCommandWord(text);
    std::wstring reason;
    if (!word.empty())
        m_addins.Command(word, reason);
    if (!reason.empty()) {
        Complain(reason);
        PrintError(L"velmhost: " + reason + L"\n");
    }
}

bool CHostApp::OnFrameClosing()
{
    // Something modal may have code of an add-in below it on the stack.
    if (!m_frame->IsWindowEnabled())
        return false;
    UnloadAddins();
    return true;
}

void CHostApp::OnFrameDestroyed()
{
    m_frame = nullptr;
    m_steps.Stop();
    UnloadAddins();
    Automation().SetShell(nullptr);
    m_registration.reset();
}

void CHostApp::Complain(const std::wstring& sentence)
{
    m_complaints.push_back(sentence);
}

void CHostApp::OnStepFailed(const std::wstring& step, const std::wstring& reason)
{
    const std::wstring sentence = step + L": " + reason;
    if (m_exitStatus == 0)
        m_exitStatus = kStepFailed;
    Complain(sentence);
    PrintError(L"velmhost: " + sentence + L"\n");
}

void CHostApp::OnStepsFinished()
{
    if (m_runsProgram)
        PrintHistoryOnce();
    if (!m_frame || (m_runsProgram && !m_options.batch))
        return;
    // A menu that a step left open has the message loop in its hand.
    if (m_frame->IsMenuOpen())
        ::EndMenu();
    if (m_runsProgram)
        m_frame->PostMessage(WM_CLOSE);
}

void CHostApp::PrintHistoryOnce()
{
    if (m_options.history && !m_historyPrinted)
        PrintOutput(HistoryOfTexts());
    m_historyPrinted = true;
}

} // namespace velmhost
