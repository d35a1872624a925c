// The window of the ply value table.
#include "ui/ply_dialog.h"

#include "formats/text_file.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace zonterbrook::ui {

namespace {

constexpr QSize UsualSize(900, 620);
constexpr int CurveHeight = 170;
constexpr int Margin = 12;
// The value at the edge, in hundredths of a man: the largest of all, within these; what lies beyond stands at the edge.
constexpr double LeastShown = 100;
constexpr double MostShown = 1000;
constexpr int HeadLines = 2; // of the report, above its rows
const QColor Deep(198, 40, 40);
const QColor Shallow(21, 101, 192);

} // namespace

// --- The curve ------------------------------------------------------------------------------------------------------

PlyCurve::PlyCurve(QWidget* Parent) : QWidget(Parent) {
    setFixedHeight(CurveHeight);
    setAccessibleName(tr("Curve of the values"));
    setToolTip(tr("Value of each position at the deepest ply (thick) and at the first one (thin); a ring marks a "
                  "combination. Click on a point to go there."));
}

void PlyCurve::Display(const std::vector<view::PlyRow>& InRows, int InDepth) {
    Rows = &InRows;
    Depth = InDepth;
    Edge = LeastShown;
    for (const view::PlyRow& Row : InRows) {
        Edge = std::max({Edge, std::abs(1.1 * Row.Values[1]), std::abs(1.1 * Row.Values[Depth])});
    }
    Edge = std::min(Edge, MostShown);
    update();
}

QPointF PlyCurve::Place(std::size_t Row, int Ply) const {
    const double Across = static_cast<double>(std::max<std::size_t>(Rows->size(), 2) - 1);
    // Seen from one side throughout: the one to move changes with each row.
    const double Sign = (*Rows)[Row].HalfMove % 2 == 0 ? 1 : -1;
    const double Value = std::clamp(Sign * (*Rows)[Row].Values[Ply], -Edge, Edge);
    return {Margin + static_cast<double>(Row) * (width() - 2 * Margin) / Across,
            height() / 2.0 - Value / Edge * (height() / 2.0 - Margin)};
}

void PlyCurve::paintEvent(QPaintEvent* /*Event*/) {
    QPainter Painter(this);
    Painter.fillRect(rect(), palette().color(QPalette::Base));
    Painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    Painter.drawRect(rect().adjusted(0, 0, -1, -1));
    Painter.drawLine(Margin, height() / 2, width() - Margin, height() / 2);
    if (Rows == nullptr || Rows->empty()) {
        return;
    }
    Painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& [Ply, Colour, Width] : {std::tuple(1, Shallow, 1.2), std::tuple(Depth, Deep, 2.4)}) {
        QPainterPath Line(Place(0, Ply));
        for (std::size_t Row = 1; Row < Rows->size(); ++Row) {
            Line.lineTo(Place(Row, Ply));
        }
        Painter.setBrush(Qt::NoBrush);
        Painter.setPen(QPen(Colour, Width));
        Painter.drawPath(Line);
    }
    for (std::size_t Row = 0; Row < Rows->size(); ++Row) {
        if ((*Rows)[Row].Flagged) {
            Painter.drawEllipse(Place(Row, Depth), 5, 5);
        }
    }
}

void PlyCurve::mousePressEvent(QMouseEvent* Event) {
    if (Rows == nullptr || Rows->empty()) {
        return;
    }
    std::size_t Nearest = 0;
    for (std::size_t Row = 1; Row < Rows->size(); ++Row) {
        const double X = Event->position().x();
        Nearest = std::abs(Place(Row, Depth).x() - X) < std::abs(Place(Nearest, Depth).x() - X) ? Row : Nearest;
    }
    emit RowClicked(Nearest);
}

// --- The window -----------------------------------------------------------------------------------------------------

PlyDialog::PlyDialog(QWidget* Parent, control::PlyValueTool& InTool)
    : QDialog(Parent), Tool(InTool), Says(new QLabel(tr("Searching..."))), Order(new QComboBox), Curve(new PlyCurve),
      Report(new QPlainTextEdit), Close(new QPushButton(tr("Close"))), Cancel(new QPushButton(tr("Cancel"))),
      Save(new QPushButton(tr("&Save Report..."))) {
    setObjectName(QStringLiteral("frmPV"));
    setWindowTitle(tr("Ply Value Table"));
    Says->setObjectName(QStringLiteral("Label1"));
    Order->setObjectName(QStringLiteral("Combo1"));
    Order->setAccessibleName(tr("Sort by"));
    for (const char* Caption : view::PlyOrderCaptions) {
        Order->addItem(QLatin1String(Caption));
    }
    Report->setObjectName(QStringLiteral("Text1"));
    Report->setAccessibleName(tr("Report"));
    Report->setReadOnly(true);
    Report->setLineWrapMode(QPlainTextEdit::NoWrap);
    Report->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    Report->setToolTip(tr("Click on a line to see its position on the board."));
    Report->viewport()->installEventFilter(this);
    Curve->setObjectName(QStringLiteral("Curve"));
    Close->setObjectName(QStringLiteral("Command1"));
    Close->setEnabled(false);
    Cancel->setObjectName(QStringLiteral("Command2"));
    Save->setObjectName(QStringLiteral("SaveReport"));
    Save->setEnabled(false);
    auto* Top = new QHBoxLayout;
    Top->addWidget(Order);
    Top->addWidget(Says, 1);
    auto* Bottom = new QHBoxLayout;
    Bottom->addWidget(Save);
    Bottom->addStretch(1);
    Bottom->addWidget(Cancel);
    Bottom->addWidget(Close);
    auto* Column = new QVBoxLayout(this);
    Column->addLayout(Top);
    Column->addWidget(Curve);
    Column->addWidget(Report, 1);
    Column->addLayout(Bottom);
    connect(Order, &QComboBox::activated, this, &PlyDialog::ShowReport);
    connect(Cancel, &QPushButton::clicked, this, [this] {
        Cancel->setEnabled(false);
        Tool.Cancel1_Click();
    });
    connect(Close, &QPushButton::clicked, this, &QDialog::accept);
    connect(Save, &QPushButton::clicked, this, &PlyDialog::SaveReport);
    connect(Curve, &PlyCurve::RowClicked, this, [this](std::size_t Row) { Tool.GoTo(Row); });
    resize(UsualSize);
    // The window stands before the first position is looked at.
    QTimer::singleShot(0, this, &PlyDialog::Build);
}

void PlyDialog::Build() {
    auto* Progress = new QTimer(this);
    connect(Progress, &QTimer::timeout, this, [this] {
        Says->setText(tr("%1 of %2 positions").arg(Tool.Rows().size()).arg(Tool.Wanted()));
        Curve->Display(Tool.Rows(), Tool.Depth());
    });
    constexpr int Often = 100;
    Progress->start(Often);
    Tool.BuildTrapped();
    Progress->stop();
    if (!Tool.IsDone()) {
        QDialog::reject(); // the program is on its way out, and has said why
        return;
    }
    Says->setText(tr("Done!"));
    Close->setEnabled(true);
    Cancel->setEnabled(false);
    Save->setEnabled(true);
    ShowReport();
    if (Closing) {
        accept();
    }
}

void PlyDialog::ShowReport() {
    if (!Tool.IsDone()) {
        return;
    }
    const auto By = static_cast<view::PlyOrder>(Order->currentIndex());
    Report->setPlainText(QString::fromStdString(view::PlyReport(Tool.Rows(), Tool.Depth(), By)));
    Curve->Display(Tool.Rows(), Tool.Depth());
}

bool PlyDialog::eventFilter(QObject* Watched, QEvent* Event) {
    if (Watched == Report->viewport() && Event->type() == QEvent::MouseButtonRelease) {
        QTimer::singleShot(0, this, &PlyDialog::GoToLine);
    }
    return QDialog::eventFilter(Watched, Event);
}

void PlyDialog::GoToLine() {
    const int Line = Report->textCursor().blockNumber() - HeadLines;
    const auto By = static_cast<view::PlyOrder>(Order->currentIndex());
    const auto Places = view::SortRows(Tool.Rows(), Tool.Depth(), By);
    if (Tool.IsDone() && Line >= 0 && static_cast<std::size_t>(Line) < Places.size()) {
        Tool.GoTo(Places[static_cast<std::size_t>(Line)]);
    }
}

void PlyDialog::SaveReport() {
    const QString File =
        QFileDialog::getSaveFileName(this, tr("Save Report"), QStringLiteral("ply_values.txt"), tr("Text (*.txt)"));
    if (File.isEmpty()) {
        return;
    }
    std::string Text = Report->toPlainText().replace(QLatin1Char('\n'), QLatin1String("\r\n")).toStdString();
    if (const auto Failure = formats::WriteFile(std::filesystem::path(File.toStdU16String()), Text)) {
        QMessageBox::warning(this, tr("Save Report"), QString::fromStdString(Failure->Text()));
    }
}

void PlyDialog::reject() {
    if (!Tool.IsDone()) {
        Closing = true;
        Tool.Cancel1_Click();
        return;
    }
    QDialog::reject();
}

} // namespace zonterbrook::ui
