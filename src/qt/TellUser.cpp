#include "qt/TellUser.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QTimer>

#include "base/ProgramState.h"
#include "qt/Strings.h"

namespace brenwick {

void TellUser(const std::string& message) {
  qWarning("%s", message.c_str());
  QTimer::singleShot(0, QCoreApplication::instance(), [message] {
    auto* box = new QMessageBox(QMessageBox::Warning, kTitle, ToQt(message), QMessageBox::Ok);
    box->setObjectName("tellUser");
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
  });
}

}  // namespace brenwick
