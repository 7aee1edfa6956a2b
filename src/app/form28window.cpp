#include "app/form28window.h"

#include "app/dialogwindow.h"
#include "app/startup.h"
#include "app/station.h"
#include "bmode/pictureview.h"
#include "render/rastercanvas.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

namespace orvane {

namespace {
// The B-mode canvas in pixels: 1200 view indices across, the rail's height below.
constexpr int picturewidth = 1200;
constexpr int pictureheight = 420;
} // namespace

Form28Window::Form28Window(Station& st, DialogUi& ui, QWidget* parent)
    : QMainWindow(parent), st_(st), ui_(ui),
      canvas_(std::make_unique<RasterCanvas>(picturewidth, pictureheight)) {
    setObjectName("Form28");
    canvas_->beginbackground(st_.settings.color("bxianbackcolor"));
    canvas_->storebackground();
    canvas_->clear();
    st_.picture1 = canvas_.get();

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    picture1_ = new PictureView(*canvas_, central);
    picture1_->setObjectName("Picture1");
    layout->addWidget(picture1_, 1);

    auto* status = new QHBoxLayout();
    lts1_ = new QLabel(central);
    lts1_->setObjectName("lts1");
    pb1_ = new QProgressBar(central);
    pb1_->setObjectName("pb1");
    status->addWidget(lts1_);
    status->addWidget(pb1_, 1);
    layout->addLayout(status);
    setCentralWidget(central);

    ui_.setparent(this);
    ui_.setbar(pb1_);
    ui_.setbeforedialog([this] { refresh(); });
    resize(1280, 720);
    refresh();
}

Form28Window::~Form28Window() {
    st_.picture1 = nullptr;
    ui_.setbar(nullptr);
    ui_.setbeforedialog(nullptr);
    ui_.setparent(nullptr);
}

void Form28Window::refresh() {
    setWindowTitle(QString::fromStdString(st_.form.caption));
    lts1_->setText(QString::fromStdString(st_.form.lts1));
    lts1_->setVisible(st_.form.lts1visible);
    pb1_->setVisible(st_.form.pb1visible);
    picture1_->update();
}

void Form28Window::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (activationqueued_) return;
    activationqueued_ = true;
    // The walk starts once the window has painted, so that the bar is seen moving.
    QTimer::singleShot(0, this, &Form28Window::activate);
}

void Form28Window::activate() {
    st_.form.pb1visible = true;
    st_.form.lts1visible = true;
    refresh();
    windowactivate(st_);
    refresh();
    emit activated();
    if (st_.process.ended) close();
}

void Form28Window::closeEvent(QCloseEvent* event) {
    windowunload(st_);
    event->accept();
}

} // namespace orvane
