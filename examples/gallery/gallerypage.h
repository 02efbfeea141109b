#ifndef GALLERY_GALLERYPAGE_H
#define GALLERY_GALLERYPAGE_H
// One page of the gallery: a heading, a line that says what the page shows,
// and a scrolling body of sections. Each page also knows how to put itself
// into the state its screenshot shows, for the offscreen run.
#include <QString>
#include <QWidget>

class QGridLayout;
class QGroupBox;
class QLabel;
class QVBoxLayout;

class GalleryPage : public QWidget
{
    Q_OBJECT
public:
    // `id` names the page's screenshot files; `title` is the list entry and
    // heading; `blurb` the line under the heading.
    GalleryPage(const QString &id, const QString &title, const QString &blurb,
                QWidget *parent = nullptr);

    QString id() const { return m_id; }
    QString title() const { return m_title; }

    // True when the page looks different in each dialog skin: the offscreen
    // run then writes one screenshot per skin.
    virtual bool followsSkin() const { return false; }
    // Puts the page into the state of its screenshot. May open top-level
    // windows; the screenshot shows them over the main window. Called after
    // the page is current and the skin is set.
    virtual void stageShot() {}
    // Closes whatever stageShot() opened.
    virtual void endShot() {}

    // A small grey explanatory line.
    static QLabel *note(const QString &text);
    // A note centred under a picture.
    static QLabel *caption(const QString &text);
    // A value in monospace that the user can select and copy.
    static QLabel *valueLabel(const QString &text = QString());

protected:
    // A titled card appended to the body; lay its contents out on it.
    QGroupBox *addSection(const QString &title);
    // Two cards side by side, appended to the body.
    QPair<QGroupBox *, QGroupBox *> addSectionPair(const QString &left, const QString &right);
    QVBoxLayout *body() const { return m_body; }

private:
    QString m_id;
    QString m_title;
    QVBoxLayout *m_body;
};

// Lets the offscreen run wait for animations and layouts without a test
// framework.
void galleryWait(int milliseconds);

#endif // GALLERY_GALLERYPAGE_H
