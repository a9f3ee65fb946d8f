// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/about/splash_window.h"

#include "core/messages.h"
#include "core/version.h"
#include "forms/screen_text.h"
#include "ui/about/logo.h"
#include "ui/about/title_font.h"
#include "ui_splash_window.h"

frmSplash::frmSplash() : QDialog(nullptr, Qt::SplashScreen), ui(std::make_unique<Ui::frmSplash>())
{
    ui->setupUi(this);
    Form_Load();
}

frmSplash::~frmSplash() = default;

void frmSplash::Form_Load()
{
    constexpr QSize kLogo(128, 128);
    ui->imgLogo->setPixmap(kavo::logo().pixmap(kLogo, devicePixelRatioF()));
    kavo::followDesktopFont(*ui->lblProductName);
    ui->lblProductName->setText(kavo::toScreen(kavo::kApplicationTitle));
    ui->lblVersion->setText(kavo::toScreen(kavo::kVersionText));
}

// The window: a key closes it
void frmSplash::Form_KeyPress()
{
    close();
}

// Frame1: so does a click
void frmSplash::Frame1_Click()
{
    close();
}

void frmSplash::keyPressEvent(QKeyEvent*)
{
    Form_KeyPress();
}

void frmSplash::mousePressEvent(QMouseEvent*)
{
    Frame1_Click();
}
