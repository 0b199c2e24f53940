// SPDX-License-Identifier: MIT
#include "board/PlanNudge.h"

#include "model/SettingsKeys.h"
#include "model/UserDefaults.h"

#include <QCoreApplication>

namespace tarnwick {

namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(tarnwick::PlanNudge)
};

}  // namespace

DailyBurn dailyBurn(const UserDefaults& defaults) {
  return defaults.booleanOrOn(keys::kDailyBurn) ? DailyBurn::On : DailyBurn::Off;
}

PlanNudge planNudge(const QDateTime& at, const Calendar& calendar, DailyBurn dailyBurn) {
  const int hour = calendar.hour(at);
  const QLocale& locale = calendar.locale();
  const QString day = locale.toUpper(locale.dayName(calendar.day(at).dayOfWeek(), QLocale::LongFormat));
  if (hour < 5 || hour >= 22) {
    return {Words::tr("LATE NIGHT"), Words::tr("Desk is clear"), Words::tr("Nothing to burn tonight. Sleep easy."), false};
  }
  if (hour < 12) {
    return {Words::tr("%1 MORNING").arg(day), Words::tr("What's today's plan?"),
            Words::tr("Stick the 3 things that make today a win."), true};
  }
  if (hour < 17) {
    QString subtitle = Words::tr("Stick it before it slips.");
    if (dailyBurn == DailyBurn::On) subtitle += Words::tr(" Unfinished notes burn at midnight.");
    return {Words::tr("%1 AFTERNOON").arg(day), Words::tr("What still has to happen today?"), subtitle, true};
  }
  return {Words::tr("%1 EVENING").arg(day), Words::tr("Anything left for today?"),
          Words::tr("One last push, or plan tomorrow in the morning."), true};
}

}  // namespace tarnwick
