#include "capture/scrncapwindow.h"

#include "station/ports.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QThread>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvane {

namespace {

// The short signs of the nine tools on their buttons; their tips say what they do.
const char* const toolsigns[] = {"撤销", "复制", "保存", "退出", "矩形", "椭圆", "文字", "箭头", "重做"};

} // namespace

ScrnCapForm::ScrnCapForm(const QImage& snapshot, const QRect& area, Ui& ui, QWidget* parent)
    : QDialog(parent, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), cap_(snapshot), ui_(ui) {
    setObjectName("ScrnCapForm");
    setModal(true);
    setGeometry(area);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);

    bar_ = new QWidget(this);
    bar_->setObjectName("Image2");
    bar_->setAutoFillBackground(true);
    auto* tools = new QHBoxLayout(bar_);
    tools->setContentsMargins(2, 2, 2, 2);
    for (int i = 0; i < 9; ++i) {
        auto* b = new QToolButton(bar_);
        b->setObjectName(QString("Image2(%1)").arg(i));
        b->setText(QString::fromUtf8(toolsigns[i]));
        b->setToolTip(QString::fromUtf8(capturetips[static_cast<std::size_t>(i)]));
        b->setCheckable(i >= 4 && i <= 7);
        connect(b, &QToolButton::clicked, this, [this, i] { tool(i); });
        tools->addWidget(b);
    }

    palette_ = new QWidget(this);
    palette_->setObjectName("PicColor");
    palette_->setAutoFillBackground(true);
    auto* choice = new QVBoxLayout(palette_);
    choice->setContentsMargins(2, 2, 2, 2);
    auto* swatches = new QHBoxLayout();
    for (int i = 0; i < 16; ++i) {
        auto* swatch = new QToolButton(palette_);
        swatch->setObjectName(QString("Pcolor(%1)").arg(i));
        swatch->setFixedSize(18, 18);
        swatch->setStyleSheet("background-color: " + capturecolors[static_cast<std::size_t>(i)].name() + ";");
        connect(swatch, &QToolButton::clicked, this, [this, i] {
            cap_.color = capturecolors[static_cast<std::size_t>(i)];
            update();
        });
        swatches->addWidget(swatch);
    }
    choice->addLayout(swatches);
    auto* fontrow = new QHBoxLayout();
    auto* font = new QFontComboBox(palette_);
    font->setObjectName("PicFont");
    font->setCurrentFont(QFont(cap_.font));
    connect(font, &QFontComboBox::currentFontChanged, this,
            [this](const QFont& f) { cap_.font = f.family(); });
    auto* size = new QComboBox(palette_);
    size->setObjectName("Combo1");
    for (int s : {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72})
        size->addItem(QString::number(s));
    size->setCurrentText(QString::number(cap_.fontsize));
    connect(size, &QComboBox::currentTextChanged, this,
            [this](const QString& s) { cap_.fontsize = s.toInt(); });
    fontrow->addWidget(font);
    fontrow->addWidget(size);
    choice->addLayout(fontrow);

    pos_ = new QLabel(this);
    pos_->setObjectName("LblPos");
    info_ = new QLabel(this);
    info_->setObjectName("lblInfo");
    for (QLabel* l : {pos_, info_})
        l->setStyleSheet("background: rgba(0,0,0,160); color: white; padding: 2px;");

    text_ = new QLineEdit(this);
    text_->setObjectName("TextEdit");
    text_->setPlaceholderText("输入文字后按回车");
    connect(text_, &QLineEdit::returnPressed, this, [this] {
        cap_.puttext(text_->text());
        text_->clear();
        place();
        update();
    });
    place();
}

void ScrnCapForm::tool(int index) {
    switch (index) {
    case 1:
        copyselection();
        accept();
        return;
    case 2:
        save();
        return;
    case 3:
        reject();
        return;
    default:
        cap_.Image2(index);
    }
    for (int i = 4; i <= 7; ++i)
        if (auto* b = bar_->findChild<QToolButton*>(QString("Image2(%1)").arg(i)))
            b->setChecked(static_cast<int>(cap_.tool) == i - 3);
    place();
    update();
}

void ScrnCapForm::copyselection() {
    const QImage selection = cap_.CutdSave();
    if (!selection.isNull()) QApplication::clipboard()->setImage(selection);
}

void ScrnCapForm::save() {
    // The selection is on the clipboard whether or not a file is written.
    copyselection();
    if (saveselection(cap_, ui_)) accept();
}

QPoint ScrnCapForm::onsnapshot(QPointF at) const {
    // The snapshot fills the window; its pixels may be finer than the window's (a high-density screen).
    const double sx = cap_.Picture1.width() / std::max(1.0, double(width()));
    const double sy = cap_.Picture1.height() / std::max(1.0, double(height()));
    return {static_cast<int>(at.x() * sx), static_cast<int>(at.y() * sy)};
}

void ScrnCapForm::place() {
    const bool selected = !cap_.frame.isEmpty() && cap_.Picture2visible;
    const double sx = width() / std::max(1.0, double(cap_.Picture1.width()));
    const double sy = height() / std::max(1.0, double(cap_.Picture1.height()));
    const QRect frame(QPoint(int(cap_.frame.x() * sx), int(cap_.frame.y() * sy)),
                      QSize(int(cap_.frame.width() * sx), int(cap_.frame.height() * sy)));
    pos_->setText(cap_.LblPos());
    info_->setText(cap_.lblInfo());
    pos_->adjustSize();
    info_->adjustSize();
    pos_->setVisible(cap_.LblPosvisible && !cap_.frame.isEmpty());
    info_->setVisible(cap_.lblInfovisible && !cap_.frame.isEmpty());
    // The labels above the frame, or inside it when it touches the top.
    const int labely = frame.top() > pos_->height() + 2 ? frame.top() - pos_->height() - 2 : frame.top() + 2;
    pos_->move(frame.left(), labely);
    info_->move(frame.left() + pos_->width() + 4, labely);
    // The tool bar under the frame's right edge, kept on the screen.
    bar_->adjustSize();
    palette_->adjustSize();
    const bool drawing = cap_.tool != CaptureTool::none;
    const int extra = drawing ? palette_->height() + 2 : 0;
    int bary = frame.bottom() + 4;
    if (bary + bar_->height() + extra > height())
        bary = std::max(0, frame.top() - bar_->height() - extra - 4);
    const int barx = std::clamp(frame.right() - bar_->width(), 0, std::max(0, width() - bar_->width()));
    bar_->move(barx, bary);
    bar_->setVisible(selected);
    palette_->move(std::clamp(barx, 0, std::max(0, width() - palette_->width())), bary + bar_->height() + 2);
    palette_->setVisible(selected && drawing);
    text_->setVisible(cap_.textat.has_value());
    if (cap_.textat) {
        text_->move(frame.left() + int(cap_.textat->x() * sx), frame.top() + int(cap_.textat->y() * sy));
        text_->setFocus();
    }
}

void ScrnCapForm::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRectF whole(0, 0, width(), height());
    p.drawImage(whole, cap_.Picture1);
    // Outside the selection the screen is dimmed, so the selection stands out.
    const double sx = width() / std::max(1.0, double(cap_.Picture1.width()));
    const double sy = height() / std::max(1.0, double(cap_.Picture1.height()));
    const QRectF frame(cap_.frame.x() * sx, cap_.frame.y() * sy, cap_.frame.width() * sx,
                       cap_.frame.height() * sy);
    QPainterPath outside;
    outside.addRect(whole);
    if (!cap_.frame.isEmpty()) outside.addRect(frame);
    p.fillPath(outside, QColor(0, 0, 0, cap_.Picture1visible || !cap_.frame.isEmpty() ? 110 : 150));
    if (cap_.frame.isEmpty()) return;
    if (cap_.Picture2visible && !cap_.Picture2.isNull()) p.drawImage(frame, cap_.Picture2);
    // The shape being dragged, before it is drawn into the selection.
    const QRect shape = cap_.dragshape();
    if (!shape.isNull()) {
        p.save();
        p.translate(frame.topLeft());
        p.scale(sx, sy);
        p.setPen(QPen(cap_.color, 2));
        if (cap_.tool == CaptureTool::rectangle) p.drawRect(shape.normalized());
        if (cap_.tool == CaptureTool::ellipse) p.drawEllipse(shape.normalized());
        if (cap_.tool == CaptureTool::arrow) p.drawLine(shape.topLeft(), shape.bottomRight());
        p.restore();
    }
    // The frame and its eight handles.
    p.setPen(QPen(QColor(0, 120, 215), 1));
    p.setBrush(Qt::NoBrush);
    p.drawRect(frame);
    p.setBrush(QColor(0, 120, 215));
    for (double fx : {0.0, 0.5, 1.0})
        for (double fy : {0.0, 0.5, 1.0}) {
            if (fx == 0.5 && fy == 0.5) continue;
            const QPointF c(frame.left() + fx * frame.width(), frame.top() + fy * frame.height());
            p.drawRect(QRectF(c.x() - 3, c.y() - 3, 6, 6));
        }
}

void ScrnCapForm::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    // A click beside an open text box puts the text first.
    if (cap_.textat) {
        cap_.puttext(text_->text());
        text_->clear();
    }
    cap_.MDown(onsnapshot(event->position()));
    place();
    update();
}

void ScrnCapForm::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = onsnapshot(event->position());
    setCursor(cap_.inframe(at) && cap_.tool == CaptureTool::none ? Qt::SizeAllCursor : Qt::CrossCursor);
    if (!(event->buttons() & Qt::LeftButton)) return;
    cap_.mousemove(at);
    place();
    update();
}

void ScrnCapForm::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    cap_.mouseup(onsnapshot(event->position()));
    place();
    update();
}

void ScrnCapForm::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!cap_.inframe(onsnapshot(event->position()))) return;
    // The snapshot goes away first, so that the copy is of the selection alone.
    cap_.Picture1visible = false;
    update();
    QThread::msleep(10);
    QApplication::processEvents();
    copyselection();
    accept();
}

void ScrnCapForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return reject();
    QDialog::keyPressEvent(event);
}

} // namespace orvane
