// A Qt window with as many labels as the panel has visible widgets, in as many frames as the panel
// has, and nothing else.

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QMainWindow>

namespace {

constexpr int frames = 4;
constexpr int labels = 38;
constexpr int columns = 5;
constexpr int width = 803;
constexpr int height = 208;

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  auto* panel = new QWidget(&window);
  for (int i = 0; i < frames; ++i) {
    auto* frame = new QFrame(panel);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setGeometry(i * width / frames, 0, width / frames, height);
  }
  for (int i = 0; i < labels; ++i) {
    auto* label = new QLabel(QString("Label %1").arg(i), panel);
    label->setGeometry(i % columns * width / columns, i / columns * 20, width / columns, 20);
  }
  window.setCentralWidget(panel);
  window.resize(width, height);
  window.show();
  return QApplication::exec();
}
