#pragma once

#include "desktop/actions.h"
#include "startup/run.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

class QStackedLayout;

namespace pgbp {

class ElidedLabel;
class FormView;
class WindowMemory;

/// The window of the module: heading, the screen on display, status line. Modal screens stand in dialogs over it. Each
/// screen is drawn when it is first shown. Its cross is the cross of the screens on display.
class MainWindow : public QWidget {
  public:
    explicit MainWindow(Run& run, WindowMemory* memory = nullptr);
    ~MainWindow() override;

    /// Called when the run has ended.
    std::function<void()> onEnd;

    /// Shows what is on display now; also while an action still runs, before a message box.
    void CatchUp();
    /// The view of a screen that has been shown; none otherwise.
    FormView* Find(const Screen* screen) const;

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Shown {
        Screen* screen;
        std::string name;
        FormView* view;
        std::unique_ptr<QWidget> top; ///< the view, or the dialog it stands in
    };

    void Build();
    QWidget* BuildHeader();
    QWidget* BuildStatusLine();
    Shown& ShownFor(Screen& screen, bool modal);
    void Drop(const std::function<bool(const Shown&)>& unwanted);
    void ShowTexts(const Screen& page);
    void ShowNotice();
    void Settled();
    void AwaitCheck();

    Run& run_;
    const double returnForm_ = run_.GlITR; ///< of the client: a statement that is open may run with another number
    WindowMemory* memory_;
    Actions actions_;
    int changedListener_;
    bool isBehind_ = false; ///< other screens are on display than those that are shown
    std::vector<Shown> shown_;
    QStackedLayout* pages_ = nullptr;
    ElidedLabel* title_ = nullptr;
    ElidedLabel* client_ = nullptr;
    ElidedLabel* year_ = nullptr;
    ElidedLabel* statusClient_ = nullptr;
    ElidedLabel* status_ = nullptr;
    ElidedLabel* notice_ = nullptr;
    std::string noticeShown_;
    QTimer noticeFades_; ///< a notice stands out while it is new
};

} // namespace pgbp
