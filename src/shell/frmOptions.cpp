#include "shell/frmOptions.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "template/basFileDlg.h"

namespace quillon {

frmOptions::frmOptions()
    : Screen("frmOptions") {
    SetTitle("Options");
    SetCaptions();
    cmdOK.OnClick = [this] { cmdOK_Click(); };
    cmdCancel.OnClick = [this] { cmdCancel_Click(); };
    cmdFindTemplate.OnClick = [this] { cmdFindTemplate_Click(); };
    tbsOptions.OnClick = [this] { tbsOptions_Click(); };
}

void frmOptions::SetCaptions() {
    tbsOptions.SetTabs({{"Scripts", ""}, {"Exclude", ""}, {"Architecture", ""}});
    fraEditor.SetCaption("View Scripts with:");
    optEditor[0].SetCaption("Microsoft SQL Server Query-Analyzer");
    optEditor[1].SetCaption("Harrowgate Editor");
    optEditor[2].SetCaption("Execute automatically against the database.  Do not show scripts.");
    fraExclude.SetCaption("Audit Table Exclude:");
    lblPrefix.SetCaption("Audit Table Prefix:");
    lblPrefixNote.SetCaption("This will be uses to exclude Audit related tables from the Auditing interface");
    chkExclude.SetCaption("&Exclude System Databases");
    fraDefaultArch.SetCaption("Default Architecture Profile:");
    lblDefaultArch.SetCaption("File Path and Name:");
    cmdFindTemplate.SetCaption("Select Template");
    lblDefaultArchNote.SetCaption(
        "Enter file name only (not full file path) to look for file in Application Directory");
    cmdOK.SetCaption("OK");
    cmdCancel.SetCaption("Cancel");
}

std::vector<Control*> frmOptions::OnPanel(std::size_t panel) {
    switch (panel) {
    case 0: return {&fraEditor, &optEditor[0], &optEditor[1], &optEditor[2]};
    case 1: return {&fraExclude, &lblPrefix, &txtPrefix, &lblPrefixNote, &chkExclude};
    case 2: return {&fraDefaultArch, &lblDefaultArch, &txtDefaultArch, &cmdFindTemplate, &lblDefaultArchNote};
    default: throw Failure(numbers::SubscriptOutOfRange);
    }
}

void frmOptions::Form_Load() {
    g_objTrace->Procedure("frmOptions.Form_Load", [&] {
        tbsOptions_Click();
        // The texts come first: they always convert, so that a spoilt number leaves no empty box for OK to
        // save.
        txtPrefix.SetText(settings::Read(settings::AuditTablePrefix));
        txtDefaultArch.SetText(settings::Read(settings::DefaultArch));
        chkExclude.SetValue(settings::ReadBoolean(settings::ExcludeSysTables) ? CheckBox::Ticked
                                                                              : CheckBox::Unticked);
        optEditor[static_cast<std::size_t>(settings::ReadLong(settings::Editor))].SetValue(true);
    });
}

void frmOptions::cmdOK_Click() {
    g_objTrace->Procedure("frmOptions.cmdOK_Click", [&] {
        for (const OptionButton& option : optEditor)
            if (option.Value())
                settings::Write(std::to_string(option.Index()), settings::Editor);
        settings::Write(txtPrefix.Text(), settings::AuditTablePrefix);
        settings::Write(chkExclude.IsTicked() ? "1" : "0", settings::ExcludeSysTables);
        settings::Write(txtDefaultArch.Text(), settings::DefaultArch);
        Unload();
    });
}

void frmOptions::cmdCancel_Click() {
    g_objTrace->Procedure("frmOptions.cmdCancel_Click", [&] { Unload(); });
}

void frmOptions::cmdFindTemplate_Click() {
    g_objTrace->Procedure("frmOptions.cmdFindTemplate_Click", [&] {
        const auto path = basFileDlg::ShowFileDlg(basFileDlg::Mode::Open, "qlnx");
        if (path)
            txtDefaultArch.SetText(*path);
    });
}

void frmOptions::tbsOptions_Click() {
    g_objTrace->Procedure("frmOptions.tbsOptions_Click", [&] {
        for (Frame& panel : picOptions)
            panel.SetVisible(panel.Index() == tbsOptions.Selected());
    });
}

void frmOptions::Form_KeyDown(Key key, int shift) {
    g_objTrace->Procedure("frmOptions.Form_KeyDown", [&] {
        if (key == Key::Escape)
            cmdCancel_Click();
        else if (key == Key::Enter)
            cmdOK_Click();
        else if (key == Key::Tab && (shift & ControlDown) != 0)
            SelectNextTab();
    });
}

void frmOptions::SelectNextTab() {
    tbsOptions.Select((tbsOptions.Selected() + 1) % static_cast<int>(Panels));
}

} // namespace quillon
