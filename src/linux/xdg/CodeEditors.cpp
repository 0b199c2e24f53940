// SPDX-License-Identifier: MIT
#include "linux/xdg/CodeEditors.h"

#include <algorithm>
#include <array>

namespace tarnwick {

namespace {

constexpr std::array kEditors{
    // the family of Visual Studio Code: packages, Flatpaks, Snaps
    "code", "code-oss", "code-insiders", "codium", "vscodium", "com.microsoft.VSCode", "com.visualstudio.code",
    "com.visualstudio.code-oss", "com.vscodium.codium", "code_code", "codium_codium", "cursor",
    // Sublime Text, Zed, Lapce, Pulsar
    "sublime_text", "com.sublimetext.three", "com.sublimetext.4", "sublime-text_subl", "dev.zed.Zed", "zed",
    "dev.lapce.lapce", "lapce", "pulsar",
    // the desktops' own
    "org.kde.kate", "org.kde.kwrite", "org.kde.kdevelop", "org.gnome.gedit", "org.gnome.TextEditor",
    "org.gnome.Builder", "org.xfce.mousepad", "mousepad", "pluma", "xed", "org.x.editor", "featherpad",
    // small and classic ones
    "geany", "scite", "bluefish", "notepadqq", "emacs", "emacsclient", "gvim", "vim", "nvim", "nvim-qt", "neovide",
    // environments
    "org.qt-project.qtcreator", "codeblocks", "eclipse", "netbeans", "org.apache.netbeans", "android-studio",
    "com.google.AndroidStudio", "arduino", "cc.arduino.IDE2", "spyder", "org.spyder_ide.spyder", "thonny",
    "org.thonny.Thonny", "rstudio",
};

/// Families whose ids end in a product and an edition: those of the Toolbox, of Flathub, of the Snap store.
constexpr std::array kFamilies{"jetbrains-", "com.jetbrains.", "intellij-idea-", "pycharm-", "clion_", "goland_",
                               "phpstorm_", "rubymine_", "webstorm_"};

}  // namespace

bool isCodeEditor(const QString& id) {
  return std::any_of(kEditors.begin(), kEditors.end(),
                     [&](const char* known) { return id.compare(QLatin1StringView(known), Qt::CaseInsensitive) == 0; }) ||
         std::any_of(kFamilies.begin(), kFamilies.end(), [&](const char* family) {
           return id.startsWith(QLatin1StringView(family), Qt::CaseInsensitive);
         });
}

}  // namespace tarnwick
