#ifndef ORVANE_TESTS_TESTCATALOGUE_H
#define ORVANE_TESTS_TESTCATALOGUE_H

// Helpers shared by the slice tests: a catalogue whose members the test can
// look at, and a recorder of the debug lines the catalogue writes.

#include <Orvane/slicemanager.h>

#include <QStringList>
#include <QtGlobal>

class TestCatalogue : public Orvane::SliceManager
{
public:
    using SliceManager::m_cache;
    using SliceManager::m_images;
    using SliceManager::m_slices;
    using SliceManager::parseFileNode;

    // True when every slice points at a sheet this catalogue holds.
    bool slicesPointIntoSheets() const
    {
        for (const Orvane::Slice &entry : m_slices) {
            bool found = false;
            for (const QPixmap &sheet : m_images)
                found = found || entry.image == &sheet;
            if (!found)
                return false;
        }
        return true;
    }

    int sheetIndexOf(const QString &name) const
    {
        const QPixmap *sheet = m_slices.value(name).image;
        for (size_t i = 0; i < m_images.size(); ++i)
            if (&m_images.at(i) == sheet)
                return int(i);
        return -1;
    }
};

// Records the debug lines written while it lives, in order; the handler in
// place before is restored afterwards.
class DebugLines
{
public:
    DebugLines() { previous = qInstallMessageHandler(record); lines().clear(); }
    ~DebugLines() { qInstallMessageHandler(previous); }
    DebugLines(const DebugLines &) = delete;
    DebugLines &operator=(const DebugLines &) = delete;

    static QStringList &lines()
    {
        static QStringList recorded;
        return recorded;
    }

private:
    static void record(QtMsgType type, const QMessageLogContext &, const QString &message)
    {
        if (type == QtDebugMsg)
            lines().append(message);
    }

    QtMessageHandler previous = nullptr;
};

#endif // ORVANE_TESTS_TESTCATALOGUE_H
