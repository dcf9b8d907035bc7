#pragma once

#include "toolkit/Compositing.h"
#include "toolkit/MessageOwner.h"
#include "toolkit/ShadowStrips.h"
#include "toolkit/WindowMessage.h"
#include "toolkit/cSubclass.h"

#include <memory>

class FormFade;

/// Gives a form a drop shadow and lets it fade in and out, and needs nothing of the form but to stand on it.
/// The shadow is two strips, at the form's right edge and below it. A fade is a copy of what lies under, or
/// of the form, that loses its opacity. A form inside another's area has both inside that area, a window has
/// windows of their own. Where the platform cannot, nothing is drawn and nothing waits. Belongs to the form;
/// its object name is "Shadow".
class ucShadow : public QObject, private iSubclass {
    Q_OBJECT

public:
    explicit ucShadow(QWidget* form, CompositingTest test = SystemCompositing);
    ~ucShadow() override;

    /// 0x00BBGGRR; with the high bit set a system colour, resolved now.
    quint32 Color() const { return color_; }
    void SetColor(quint32 color);
    /// The width of the strips, 0 to 99 pixels; beyond that the nearest.
    int Depth() const { return look_.depth; }
    void SetDepth(int depth);
    /// Whether the form fades when it is shown, and for how many milliseconds.
    bool FadeIn() const { return fadesIn_; }
    void SetFadeIn(bool fades) { fadesIn_ = fades; }
    int FadeTime() const { return fadeTime_; }
    void SetFadeTime(int milliseconds) { fadeTime_ = milliseconds; }
    /// Whether the shadow is away while the form is moved, or sized.
    bool HideMove() const { return hidesInMove_; }
    void SetHideMove(bool hides) { hidesInMove_ = hides; }
    bool HideSize() const { return hidesInSize_; }
    void SetHideSize(bool hides) { hidesInSize_ = hides; }
    /// Graded, else a block.
    bool SoftShadow() const { return look_.isSoft; }
    void SetSoftShadow(bool soft);
    /// The opacity of the strips, 0 to 255, over their own alpha; kept modulo 256.
    int Transparency() const { return look_.transparency; }
    void SetTransparency(int opacity);
    bool Visible() const { return look_.isVisible; }
    void SetVisible(bool visible);

    /// What the platform offered when it was last asked, for a form that stands where this one does.
    bool IsLayered() const { return isLayered_; }
    bool IsLuna() const { return platform_.roundCorners; }
    bool IsXP() const { return platform_.themes; }
    /// The desktop animates its own menus, and windows have shadows.
    static bool IsSysFadeEnabled();
    bool IsSysShadowEnabled() const { return IsXP() && platform_.windows; }

    /// Hides the form and lets it fade for so many milliseconds; one that nobody sees has faded at once. With
    /// wait it returns at the end, and events are handled meanwhile: the form and all else may be gone. Where
    /// the platform cannot, nothing is done and no end is told. False when the form is gone or was shown
    /// again while it faded.
    bool FadeOut(int milliseconds, bool wait = true);

Q_SIGNALS:
    void FadedIn(); ///< a fade on showing has ended
    void FadedOut(); ///< a FadeOut has ended

private:
    void iSubclass_Proc(bool bBefore, bool& bHandled, qint32& lReturn, QWidget*& hWnd, qint32& uMsg,
        qintptr& wParam, qintptr& lParam) override;

    void Hook();
    void TestCapability();
    void FollowDisplay();
    QString ClassName(const char* kind) const;
    /// What holds shadow and fade: the form's parent, or none for a window.
    QWidget* Host() const;

    void MakeStrips();
    void DropStrips();
    void Redraw();
    void ShowStrips(bool shown);
    void Follow();
    void HideInDrag();
    void EndDrag();

    void StartFade(int milliseconds, bool isFadeIn);
    void EndFade();

    QWidget& form_;
    CompositingTest test_;
    Compositing platform_;
    bool isLayered_ = false;

    quint32 color_ = 0;
    ShadowLook look_;
    bool fadesIn_ = true;
    int fadeTime_ = 500;
    bool hidesInMove_ = false;
    bool hidesInSize_ = false;

    cSubclass subclass_;
    WindowPosition position_; ///< of the form, as last told
    bool isInDrag_ = false; ///< and the strips are hidden for it
    std::unique_ptr<ShadowStrips> strips_;

    std::unique_ptr<FormFade> fade_;
    bool isFadeIn_ = false;
    bool isAwaited_ = false;
};
