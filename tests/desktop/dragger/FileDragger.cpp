#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {

/// A window from which files are dragged, as from a file manager. Its title tells what goes on.
class Dragger : public QLabel {
public:
    explicit Dragger(const QList<QUrl>& files) : QLabel(QStringLiteral("Files")), urls(files) {
        setWindowTitle(QStringLiteral("Dragger: ready"));
        setAlignment(Qt::AlignCenter);
        setFixedSize(160, 80);
    }

protected:
    void mousePressEvent(QMouseEvent*) override {
        auto* files = new QMimeData;
        files->setUrls(urls);
        auto* drag = new QDrag(this);
        drag->setMimeData(files);
        connect(drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) {
            setWindowTitle(action == Qt::IgnoreAction ? QStringLiteral("Dragger: refused here")
                                                      : QStringLiteral("Dragger: accepted here"));
        });
        setWindowTitle(QStringLiteral("Dragger: dragging"));
        const Qt::DropAction done = drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
        setWindowTitle(done == Qt::IgnoreAction ? QStringLiteral("Dragger: not dropped")
                                                : QStringLiteral("Dragger: dropped"));
    }

private:
    QList<QUrl> urls;
};

} // namespace

/// Its arguments are the URLs to drag.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QList<QUrl> urls;
    for (int i = 1; i < argc; ++i)
        urls.append(QUrl::fromEncoded(argv[i]));
    Dragger dragger(urls);
    dragger.move(20, 20); // beside the program's window
    dragger.show();
    return QApplication::exec();
}
