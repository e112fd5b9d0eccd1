#pragma once

#include "Lists/RecordListModel.h"
#include "Lists/ScreenLists.h"
#include "Models/APIStadium.h"
#include "Models/APITeam.h"
#include "Models/BannerState.h"
#include "Models/DayFacts.h"
#include "Models/GroupStanding.h"
#include "Models/KnockoutBracket.h"
#include "Models/Match.h"
#include "Models/StandingRow.h"
#include "Models/TeamDetailState.h"
#include "Models/TeamSearchResult.h"
#include "Models/TeamSummary.h"
#include "Navigation/PanelRoute.h"
#include "State/AlertPreferences.h"
#include "State/AppModel.h"
#include "State/GlassPreferences.h"
#include "State/MenuBarPreferences.h"
#include "State/PanelNavigation.h"
#include "State/StartAtLogin.h"
#include "UpdateController.h"
#include "UpdatePhase.h"

#include <QtQml/qqml.h>
#include <QtQml/qqmlregistration.h>

// The core's types as the screens know them. The core itself stays free of QML: it is described here,
// from the outside, so that the screens can declare what they are handed and be checked against it.

struct AppModelForeign {
    Q_GADGET
    QML_FOREIGN(AppModel)
    QML_NAMED_ELEMENT(AppModel)
    QML_UNCREATABLE("The program owns its one model.")
};

struct GlassPreferencesForeign {
    Q_GADGET
    QML_FOREIGN(GlassPreferences)
    QML_NAMED_ELEMENT(GlassPreferences)
    QML_UNCREATABLE("The model keeps the glass settings.")
};

struct AlertPreferencesForeign {
    Q_GADGET
    QML_FOREIGN(AlertPreferences)
    QML_NAMED_ELEMENT(AlertPreferences)
    QML_UNCREATABLE("The model keeps the alert settings.")
};

struct MenuBarPreferencesForeign {
    Q_GADGET
    QML_FOREIGN(MenuBarPreferences)
    QML_NAMED_ELEMENT(MenuBarPreferences)
    QML_UNCREATABLE("The model keeps the menu bar settings.")
};

struct StartAtLoginForeign {
    Q_GADGET
    QML_FOREIGN(StartAtLogin)
    QML_NAMED_ELEMENT(StartAtLogin)
    QML_UNCREATABLE("The model keeps the start-at-login state.")
};

struct PanelNavigationForeign {
    Q_GADGET
    QML_FOREIGN(PanelNavigation)
    QML_NAMED_ELEMENT(PanelNavigation)
    QML_UNCREATABLE("The model keeps the panel's navigation.")
};

struct ScreenListsForeign {
    Q_GADGET
    QML_FOREIGN(ScreenLists)
    QML_NAMED_ELEMENT(ScreenLists)
    QML_UNCREATABLE("The model owns its lists.")
};

struct RecordListModelForeign {
    Q_GADGET
    QML_FOREIGN(RecordListModel)
    QML_NAMED_ELEMENT(RecordListModel)
    QML_UNCREATABLE("Lists come from the model, or as a MatchListModel or StandingListModel.")
};

struct UpdateControllerForeign {
    Q_GADGET
    QML_FOREIGN(UpdateController)
    QML_NAMED_ELEMENT(UpdateController)
    QML_UNCREATABLE("The program owns its update controller.")
};

// Qt's own list model bases, which Qt's type descriptions leave out: without them a list model's
// properties would not be checked.
struct AbstractItemModelForeign {
    Q_GADGET
    QML_FOREIGN(QAbstractItemModel)
    QML_ANONYMOUS
};

struct AbstractListModelForeign {
    Q_GADGET
    QML_FOREIGN(QAbstractListModel)
    QML_ANONYMOUS
};

// The records, as value types.

struct MatchForeign {
    Q_GADGET
    QML_FOREIGN(Match)
    QML_VALUE_TYPE(match)
};

struct StandingRowForeign {
    Q_GADGET
    QML_FOREIGN(StandingRow)
    QML_VALUE_TYPE(standingRow)
};

struct GroupStandingForeign {
    Q_GADGET
    QML_FOREIGN(GroupStanding)
    QML_VALUE_TYPE(groupStanding)
};

struct TeamSummaryForeign {
    Q_GADGET
    QML_FOREIGN(TeamSummary)
    QML_VALUE_TYPE(teamSummary)
};

struct TeamSearchResultForeign {
    Q_GADGET
    QML_FOREIGN(TeamSearchResult)
    QML_VALUE_TYPE(teamSearchResult)
};

struct DayFactsForeign {
    Q_GADGET
    QML_FOREIGN(DayFacts)
    QML_VALUE_TYPE(dayFacts)
};

struct KnockoutBracketForeign {
    Q_GADGET
    QML_FOREIGN(KnockoutBracket)
    QML_VALUE_TYPE(knockoutBracket)
};

struct BracketRoundForeign {
    Q_GADGET
    QML_FOREIGN(BracketRound)
    QML_VALUE_TYPE(bracketRound)
};

struct APITeamForeign {
    Q_GADGET
    QML_FOREIGN(APITeam)
    QML_VALUE_TYPE(apiTeam)
};

struct APIStadiumForeign {
    Q_GADGET
    QML_FOREIGN(APIStadium)
    QML_VALUE_TYPE(apiStadium)
};

struct TeamDetailStateForeign {
    Q_GADGET
    QML_FOREIGN(TeamDetailState)
    QML_VALUE_TYPE(teamDetailState)
};

struct PanelRouteForeign {
    Q_GADGET
    QML_FOREIGN(PanelRoute)
    QML_VALUE_TYPE(panelRoute)
};

struct BannerStateForeign {
    Q_GADGET
    QML_FOREIGN(BannerState)
    QML_VALUE_TYPE(bannerState)
};

struct UpdatePhaseForeign {
    Q_GADGET
    QML_FOREIGN(UpdatePhase)
    QML_VALUE_TYPE(updatePhase)
};
