// A screen: a class whose members are its controls and whose methods are its events.
//
// Used by: every frm class of the system. A screen knows nothing of widgets; a front end shows it
// (FrontEnd.h). Life: constructed -> Load (Form_Load, once) -> shown -> hidden or unloaded. A hidden screen
// keeps its state; an unloaded one runs Form_Load again at its next use.
#pragma once

#include <string>
#include <vector>

namespace quillon {

class Control;

enum class Key : int {
    Backspace = 8,
    Tab = 9,
    Enter = 13,
    Escape = 27,
    Space = 32,
    Left = 37,
    Up = 38,
    Right = 39,
    Down = 40,
    Delete = 46,
    F1 = 112,
    F4 = 115,
    F5 = 116,
};

// Shift states of a key event, a bit set.
enum Shift : int { NoShift = 0, ShiftDown = 1, ControlDown = 2, AltDown = 4 };

class Screen {
  public:
    explicit Screen(std::string name);
    virtual ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    const std::string& Name() const noexcept { return m_name; }
    const std::string& Title() const noexcept { return m_title; }
    void SetTitle(std::string title);

    // All controls of the screen, in the order in which they were made.
    const std::vector<Control*>& Controls() const noexcept { return m_controls; }
    // By name and, for a member of a control array, index; none if there is no such control.
    Control* FindControl(const std::string& name, int index = -1) const;

    bool IsLoaded() const noexcept { return m_loaded; }
    bool IsVisible() const noexcept { return m_visible; }
    bool IsMinimised() const noexcept { return m_minimised; }
    void SetMinimised(bool minimised) { m_minimised = minimised; }

    void Load();      // Form_Load unless it has run
    void Show();      // not modal
    void ShowModal(); // returns when the screen was hidden or unloaded
    void Hide();
    // Asks Form_Unload; false when the screen stays open.
    bool Unload();
    // For front ends: the screen got the focus.
    void Activate() { Form_Activate(); }
    // For front ends: a key was pressed anywhere on the screen.
    void KeyDown(Key key, int shift = NoShift) { Form_KeyDown(key, shift); }
    void Repaint();

    // Screens that are loaded, in the order of loading.
    static const std::vector<Screen*>& OpenScreens();

    // Set by a front end that shows the screen; told of title, hiding and unloading through FrontEnd.
    void* View = nullptr;

  protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Unload(bool& /*cancel*/) {}
    virtual void Form_KeyDown(Key /*key*/, int /*shift*/) {}

  private:
    friend class Control;
    void Register(Control& control) { m_controls.push_back(&control); }
    void Forget(Control& control);

    std::string m_name;
    std::string m_title;
    std::vector<Control*> m_controls;
    bool m_loaded = false;
    bool m_visible = false;
    bool m_minimised = false;
};

} // namespace quillon
