#include "app/curvewindow.h"

#include "app/curveview.h"
#include "curves/curves.h"
#include "render/rastercanvas.h"
#include "station/controls.h"
#include "station/station.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

namespace orvane {

namespace {

const char* titleof(const std::string& form) {
    if (form == "Form29") return "增益曲线";
    if (form == "Form8") return "积分值曲线";
    if (form == "Form9") return "速度曲线";
    return "回放操作概况";
}

// The read-out Label14 over a curve, at its place in canvas units.
void drawreadout(QPainter& p, const std::function<QPointF(QPointF)>& at, const Side::Readout& r,
                 QColor colour) {
    if (!r.visible) return;
    p.setPen(colour);
    p.drawText(at({r.left, r.top}) + QPointF(0, 12), QString::fromStdString(r.text));
}

} // namespace

bool CurveWindow::isopen(const Station& st, const std::string& form) {
    const auto& cv = st.curves;
    return form == "Form29"  ? cv.Form29open
           : form == "Form8" ? cv.Form8open
           : form == "Form9" ? cv.Form9open
                             : cv.Form4open;
}

CurveWindow::CurveWindow(Station& st, const std::string& form, ControlView::Act act, QWidget* parent)
    : QDialog(parent), st_(st), form_(form), act_(std::move(act)) {
    setObjectName(QString::fromStdString(form));
    setWindowTitle(titleof(form));
    auto* box = new QVBoxLayout(this);
    const QColor text = qcolorof(st_.settings.color("biaochicolor"));
    if (form == "Form4") {
        setModal(true);
        box->addWidget(new QLabel(this));
        box->itemAt(0)->widget()->setObjectName("Label1");
        auto* grid = new QTableWidget(this);
        grid->setObjectName("Grid1ts");
        grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
        grid->verticalHeader()->hide();
        grid->horizontalHeader()->hide();
        grid->horizontalHeader()->setDefaultSectionSize(150);
        box->addWidget(grid);
        resize(640, 360);
    } else {
        if (form == "Form29")
            box->addWidget(
                letterrow({"Command1", "Command2", "Command4", "Command5", "Command6", "Command7", "Command9",
                           "Command10", "Command11", "Command3", "Command12", "Command8"}));
        if (form == "Form8") {
            QWidget* row = letterrow({"Command4", "Command5", "Command6", "Command7", "Command9", "Command10",
                                      "Command11", "Command1", "Command2", "Command3"});
            auto* limit = new QLineEdit(row);
            limit->setObjectName("Text1");
            limit->setPlaceholderText("积分值");
            limit->setToolTip("筛选积分值低于此数的地段");
            limit->setMaximumWidth(80);
            row->layout()->addWidget(limit);
            auto* sift = new QPushButton(row);
            sift->setObjectName("Command8");
            sift->setAutoDefault(false);
            row->layout()->addWidget(sift);
            box->addWidget(row);
        }
        auto* curves = new QHBoxLayout();
        CurveView* scale = view("Picture2");
        scale->setFixedWidth(40);
        curves->addWidget(scale);
        CurveView* curve = view("Picture1");
        curves->addWidget(curve, 1);
        if (form == "Form8") {
            CurveView* labels = view("Picture3");
            labels->setFixedWidth(40);
            curves->addWidget(labels);
        }
        box->addLayout(curves, 1);
        const Side::Readout Station::Curves::*readout = form == "Form29"  ? &Station::Curves::gainreadout
                                                        : form == "Form8" ? &Station::Curves::integralreadout
                                                                          : &Station::Curves::speedreadout;
        curve->setoverlay([this, readout, text](QPainter& p, const std::function<QPointF(QPointF)>& at) {
            drawreadout(p, at, st_.curves.*readout, text);
        });
        const std::string name = form + ".Picture1";
        connect(curve, &CurveView::moved, this, [this, name](QPointF at) {
            act_([this, name, at] { mouse(st_, name, {"move", "none", at.x(), at.y()}); });
        });
        if (form == "Form29") scalevalues(scale, 10, 58, 10);
        if (form == "Form8") scalevalues(scale, 50, 260, 50);
        if (form == "Form9") {
            scalevalues(scale, 50, 260, 1); // km/h
            auto* bar = new QScrollBar(Qt::Horizontal, this);
            bar->setObjectName("HScrolljd");
            bar->setPageStep(400);
            bar->setSingleStep(400);
            box->addWidget(bar);
            auto* labels = new QHBoxLayout();
            for (const char* n : {"Label2", "Label3"}) {
                auto* l = new QLabel(this);
                l->setObjectName(n);
                labels->addWidget(l);
                if (n[5] == '2') labels->addStretch(1);
            }
            box->addLayout(labels);
            // The legend of the five marks in their colours.
            auto* legend = new QHBoxLayout();
            for (std::size_t m = 0; m < 5; ++m) {
                auto* l = new QLabel(QString("● 标记%1").arg(m), this);
                l->setStyleSheet(QString("color: %1").arg(qcolorof(st_.curves.markcolor[m]).name()));
                legend->addWidget(l);
            }
            legend->addStretch(1);
            box->addLayout(legend);
        }
        resize(1000, 520);
    }
    controls_ = new ControlView(st_, this, form + ".", act_);
    // The opening drew before these canvases were there.
    drawcurvewindow(st_, form_);
    refresh();
}

QWidget* CurveWindow::letterrow(const std::vector<const char*>& names) {
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    for (const char* name : names) {
        auto* b = new QPushButton(row);
        b->setObjectName(name);
        b->setAutoDefault(false);
        line->addWidget(b);
    }
    line->addStretch(1);
    return row;
}

CurveView* CurveWindow::view(const char* canvas) {
    auto* v = new CurveView(st_, form_ + "." + canvas, this);
    views_.push_back(v);
    return v;
}

void CurveWindow::scalevalues(CurveView* scale, int step, double base, int value) {
    const QColor text = qcolorof(st_.settings.color("biaochicolor"));
    scale->setoverlay([step, base, value, text](QPainter& p, const std::function<QPointF(QPointF)>& at) {
        p.setPen(text);
        for (int i = 1; i <= 5; ++i) {
            const QPointF place = at({0, base - i * step});
            p.drawText(QRectF(place.x(), place.y(), 30, 14), Qt::AlignLeft, QString::number(i * value));
        }
    });
}

void CurveWindow::refresh() {
    if (!isopen(st_, form_)) {
        if (isVisible()) accept();
        return;
    }
    controls_->refresh();
    for (CurveView* v : views_) v->update();
}

void CurveWindow::reject() {
    act_([this] {
        if (isopen(st_, form_)) closeform(st_, form_);
    });
    if (isVisible()) QDialog::reject();
}

} // namespace orvane
