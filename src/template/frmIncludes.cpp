#include "template/frmIncludes.h"

#include "architecture/basArchitectureUtils.h"
#include "architecture/clsQlnTemplate.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Trace.h"
#include "template/basFileDlg.h"
#include "template/basStringFunctions.h"

namespace quillon {

using basArchitectureUtils::TheProfile;

frmIncludes::frmIncludes()
    : Screen("frmIncludes") {
    SetTitle("Manage Includes");
    lstIncludes.SetColumns({{"FileName", 0}});
    cmdAdd.SetCaption("&Add New");
    optFileOptions[0].SetCaption("Use Template Path");
    optFileOptions[1].SetCaption("Use full file path");
    optFileOptions[0].SetValue(true);
    cmdDelete.SetCaption("&Delete");
    cmdRefresh.SetCaption("&Refresh");
    cmdSave.SetCaption("&Save");
    cmdCancel.SetCaption("&Cancel");
    cmdHelp.SetCaption("&Help");

    lstIncludes.OnKeyDown = [this](Key key) {
        if (key == Key::Delete)
            cmdDelete_Click();
    };
    cmdAdd.OnClick = [this] { cmdAdd_Click(); };
    cmdDelete.OnClick = [this] { cmdDelete_Click(); };
    cmdRefresh.OnClick = [this] { cmdRefresh_Click(); };
    cmdSave.OnClick = [this] { cmdSave_Click(); };
    cmdCancel.OnClick = [this] { Unload(); };
    cmdHelp.OnClick = [] { ThePlatform().frontEnd().Help("Includes.htm"); };
}

void frmIncludes::LoadIncludes() {
    g_objTrace->Procedure("frmIncludes.LoadIncludes", [this] {
        m_cancelled = true;
        FillList();
        ShowModal();
        if (m_cancelled || !m_changed)
            return;
        clsQlnTemplate& profile = TheProfile();
        profile.ClearIncludes();
        for (const auto& row : m_rows) {
            const std::string file(basStringFunctions::Trim(row));
            if (!file.empty())
                profile.AddInclude(file);
        }
    });
}

void frmIncludes::FillList() {
    const clsQlnTemplate& profile = TheProfile();
    lstIncludes.Clear();
    for (std::int16_t index = 0; index < profile.IncludeCount(); ++index)
        lstIncludes.AddRow({.Text = " " + profile.Includes(index),
                            .SubItems = {},
                            .Icon = "include",
                            .Key = {},
                            .Note = {}});
    UpdateArray();
    EnableControls(false);
}

void frmIncludes::UpdateArray() {
    m_rows.clear();
    for (const auto& row : lstIncludes.Rows())
        m_rows.push_back(row.Text);
    if (m_rows.empty())
        m_rows.emplace_back();
}

void frmIncludes::EnableControls(bool changed) {
    m_changed = changed;
    cmdSave.SetEnabled(changed);
    cmdRefresh.SetEnabled(changed);
    cmdDelete.SetEnabled(!lstIncludes.Rows().empty());
}

std::string frmIncludes::FilePathPrc(const std::string& path) const {
    return optFileOptions[0].Value() ? basStringFunctions::JustFileName(path) : path;
}

void frmIncludes::cmdAdd_Click() {
    g_objTrace->Procedure("frmIncludes.cmdAdd_Click", [this] {
        const auto path = basFileDlg::ShowIncludeDialog(basFileDlg::Mode::Open);
        if (!path)
            return;
        lstIncludes.AddRow(
            {.Text = " " + FilePathPrc(*path), .SubItems = {}, .Icon = "include", .Key = {}, .Note = {}});
        UpdateArray();
        EnableControls(true);
    });
}

void frmIncludes::cmdDelete_Click() {
    g_objTrace->Procedure("frmIncludes.cmdDelete_Click", [this] {
        if (lstIncludes.Rows().empty() || lstIncludes.Current() < 0)
            return;
        lstIncludes.RemoveRow(static_cast<std::size_t>(lstIncludes.Current()));
        UpdateArray();
        EnableControls(true);
    });
}

void frmIncludes::cmdRefresh_Click() {
    g_objTrace->Procedure("frmIncludes.cmdRefresh_Click", [this] { FillList(); });
}

void frmIncludes::cmdSave_Click() {
    g_objTrace->Procedure("frmIncludes.cmdSave_Click", [this] {
        m_cancelled = false;
        Unload();
    });
}

} // namespace quillon
