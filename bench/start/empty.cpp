// The least that a program on QtCore does.

#include <QCoreApplication>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return 0;
}
