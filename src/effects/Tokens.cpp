// SPDX-License-Identifier: MIT
#include "effects/Tokens.h"

#include <QFontDatabase>
#include <QStringList>

namespace tarnwick::tokens {

namespace {

struct Face {
  int pixels;
  QFont::Weight weight;
  double spacing;
  double line;
};

Face face(Type role) {
  switch (role) {
    case Type::WelcomeTitle: return {22, QFont::Bold, -.4, 28};
    case Type::NudgeTitle: return {21, QFont::Bold, -.35, 26};
    case Type::PanelTitle: return {16, QFont::Bold, -.2, 22};
    case Type::StatsNumber: return {26, QFont::Bold, -.6, 30};
    case Type::RowTitle: return {13, QFont::DemiBold, -.05, 17};
    case Type::Primary: return {13, QFont::Bold, 0, 17};
    case Type::Body: return {13, QFont::Normal, .1, 20};
    case Type::Help: return {12, QFont::Normal, 0, 16};
    case Type::CardText: return {13, QFont::Medium, -.05, 17};
    case Type::NoteText: return {15, QFont::Medium, 0, 20};
    case Type::Placeholder: return {15, QFont::Normal, 0, 20};
    case Type::DueLabel: return {11, QFont::DemiBold, 0, 15};
    case Type::Countdown: return {12, QFont::DemiBold, -.1, 16};
    case Type::Stamp: return {9, QFont::Bold, .85, 12};
    case Type::Kicker: return {11, QFont::Bold, 1.3, 15};
  }
  return {13, QFont::Normal, 0, 17};
}

// The first preferred family that is installed; empty leaves the desktop's own face.
const QString& family() {
  static const QString found = [] {
    const QStringList installed = QFontDatabase::families();
    for (const auto& wanted : {QStringLiteral("Inter"), QStringLiteral("Cantarell"), QStringLiteral("Noto Sans")}) {
      if (installed.contains(wanted)) {
        return wanted;
      }
    }
    return QString();
  }();
  return found;
}

}  // namespace

void findFamily() { static_cast<void>(family()); }

QFont font(Type role) {
  const Face chosen = face(role);
  QFont result = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  if (!family().isEmpty()) {
    result.setFamilies({family()});
  }
  result.setPixelSize(chosen.pixels);
  result.setWeight(chosen.weight);
  result.setStyle(role == Type::Placeholder ? QFont::StyleItalic : QFont::StyleNormal);
  result.setLetterSpacing(QFont::AbsoluteSpacing, chosen.spacing);
  result.setHintingPreference(QFont::PreferNoHinting);
  return result;
}

double lineHeight(Type role) { return face(role).line; }

}  // namespace tarnwick::tokens
