// A message box's whole life as a host sees it: build, show, paint once,
// close (and delete), against QMessageBox with the same texts and buttons,
// in one run. Three boxes: a success note with one "OK" button, and a box
// with a heading, a check box and three buttons, once with the attention and
// once with the success picture (the peer's warning and information icons).
// The rounds of the two sides alternate so that both see the same machine;
// each side's figure is the median round, in CPU time, because the machines
// we measure on are shared.

#include <Orvane/omessagebox.h>

#include "benchsummary.h"
#include "dialogs/paintcounter.h"

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

namespace {

constexpr int CyclesPerRound = 20;
constexpr int Rounds = 15;

const QString note = QStringLiteral("The file was saved.");
const QString heading = QStringLiteral("An update is available");
const QString message = QStringLiteral("Version 2.4 is ready to install. The application restarts when the update is done.");
const QString checkText = QStringLiteral("Don't ask again");
const QStringList threeButtons = {QStringLiteral("Cancel"), QStringLiteral("Remind me later"), QStringLiteral("Update")};

using OrvaneBench::PaintCounter;

// One life of a box that deletes itself on close. Showing queues the
// window's expose; processing it paints the window once.
void live(QDialog *box, PaintCounter *counter = nullptr)
{
    if (counter)
        box->installEventFilter(counter);
    box->show();
    QCoreApplication::processEvents();
    box->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QDialog *oursSuccess()
{
    return new Orvane::OMessageBox(Orvane::Success, QStringList(QStringLiteral("OK")), note);
}

QDialog *peerSuccess()
{
    auto *box = new QMessageBox(QMessageBox::Information, QString(), note, QMessageBox::Ok);
    box->setAttribute(Qt::WA_DeleteOnClose);
    return box;
}

// A box with a heading, a check box and three buttons, the rightmost one
// highlighted (the peer's default button).
QDialog *oursFull(Orvane::MessageBoxIconType icon)
{
    return new Orvane::OMessageBox(icon, threeButtons, message, heading, -1, checkText, [](bool) {});
}

QDialog *peerFull(QMessageBox::Icon icon)
{
    auto *box = new QMessageBox(icon, QString(), heading);
    box->setInformativeText(message);
    box->setCheckBox(new QCheckBox(checkText));
    box->addButton(threeButtons.at(0), QMessageBox::RejectRole);
    box->addButton(threeButtons.at(1), QMessageBox::NoRole);
    box->setDefaultButton(box->addButton(threeButtons.at(2), QMessageBox::AcceptRole));
    box->setAttribute(Qt::WA_DeleteOnClose);
    return box;
}

double cpuMs()
{
    return double(std::clock()) * 1e3 / CLOCKS_PER_SEC;
}

double round(const std::function<QDialog *()> &make)
{
    const double start = cpuMs();
    for (int i = 0; i < CyclesPerRound; ++i)
        live(make());
    return (cpuMs() - start) / CyclesPerRound;
}

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

// Milliseconds of CPU per life of each side's box; false when a side does
// not paint, which would make the comparison meaningless.
bool compare(const char *measurement, const std::function<QDialog *()> &ours,
             const std::function<QDialog *()> &peer)
{
    PaintCounter oursPaints, peerPaints;
    live(ours(), &oursPaints);
    live(peer(), &peerPaints);
    if (oursPaints.paints == 0 || peerPaints.paints == 0) {
        std::fprintf(stderr, "%s: a box was not painted (ours %d, peer %d)\n", measurement, oursPaints.paints,
                     peerPaints.paints);
        return false;
    }
    // Warm-up: fonts, style sheets, pictures.
    round(ours);
    round(peer);
    std::vector<double> a, b;
    for (int r = 0; r < Rounds; ++r) {
        a.push_back(round(ours));
        b.push_back(round(peer));
    }
    OrvaneBench::recordCost(measurement, median(a), median(b), "ms", "QMessageBox, same texts and buttons",
                            "<= 1.0x");
    return true;
}

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &)
{
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // The box's debug line on deletion is not part of what is measured.
    qInstallMessageHandler(dropMessage);

    std::printf("bench_omessagebox: build, show, paint once, close; median of %d rounds of %d (CPU time)\n",
                Rounds, CyclesPerRound);
    bool ok = compare("OMessageBox, success, one button: build+show+paint+close (CPU)", oursSuccess, peerSuccess);
    ok = compare("OMessageBox, attention, heading, check box, 3 buttons: build+show+paint+close (CPU)",
                 [] { return oursFull(Orvane::Attention); }, [] { return peerFull(QMessageBox::Warning); })
        && ok;
    ok = compare("OMessageBox, success, heading, check box, 3 buttons: build+show+paint+close (CPU)",
                 [] { return oursFull(Orvane::Success); }, [] { return peerFull(QMessageBox::Information); })
        && ok;
    return ok ? 0 : 1;
}
