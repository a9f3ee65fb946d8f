#include "ui/about/splash_window.h"

#include "core/messages.h"
#include "core/version.h"
#include "forms/screen_text.h"
#include "ui_splash_window.h"

frmSplash::frmSplash() : QDialog(nullptr, Qt::SplashScreen), ui(std::make_unique<Ui::frmSplash>())
{
    ui->setupUi(this);
    Form_Load();
}

frmSplash::~frmSplash() = default;

void frmSplash::Form_Load()
{
    ui->lblProductName->setText(kavo::toScreen(kavo::kApplicationTitle));
    ui->lblVersion->setText(kavo::toScreen(kavo::kVersionText));
}

void frmSplash::keyPressEvent(QKeyEvent*)
{
    close();
}

void frmSplash::mousePressEvent(QMouseEvent*)
{
    close();
}
