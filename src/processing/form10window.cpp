#include "processing/form10window.h"

#include "processing/zoom.h"
#include "station/station.h"

#include <QCursor>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QRadioButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace orvane {

Form10Window::Form10Window(Station& st, ControlView::Act act, QWidget* parent)
    : QDialog(parent, Qt::Tool | Qt::WindowStaysOnTopHint), st_(st), act_(std::move(act)) {
    setObjectName("Form10");
    auto* box = new QVBoxLayout(this);
    picture_ = new QLabel(this);
    picture_->setFixedSize(300, 200);
    box->addWidget(picture_);
    auto* choices = new QHBoxLayout();
    for (int i = 0; i < 4; ++i) {
        auto* option = new QRadioButton(this);
        option->setObjectName(QString("Option1(%1)").arg(i));
        choices->addWidget(option);
    }
    box->addLayout(choices);
    controls_ = new ControlView(st_, this, "Form10.", act_);
    timer1_ = new QTimer(this);
    connect(timer1_, &QTimer::timeout, this, &Form10Window::look);
    timer1_->start(100);
    refresh();
}

void Form10Window::look() {
    const QPoint at = QCursor::pos();
    magnifiertick(st_, at.x(), at.y());
    setWindowTitle(QString::fromStdString(st_.Form10caption));
    QScreen* screen = QGuiApplication::screenAt(at);
    if (!screen) return;
    const double f = st_.magnifierfactor;
    const QSize seen(static_cast<int>(picture_->width() / f), static_cast<int>(picture_->height() / f));
    const QRect area = screen->geometry();
    const QPixmap shot =
        screen->grabWindow(0, at.x() - area.left() - seen.width() / 2,
                           at.y() - area.top() - seen.height() / 2, seen.width(), seen.height());
    picture_->setPixmap(shot.scaled(picture_->size()));
    raise(); // on top again
}

void Form10Window::refresh() {
    if (!st_.Form10open) {
        if (isVisible()) accept();
        return;
    }
    controls_->refresh();
}

void Form10Window::reject() {
    act_([this] {
        if (st_.Form10open) closeform(st_, "Form10");
    });
    if (isVisible()) QDialog::reject();
}

} // namespace orvane
