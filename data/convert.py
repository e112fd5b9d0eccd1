#!/usr/bin/env python3
"""Builds data/tournament.json, the replay service's dataset, from two sources of the real 2026 World Cup.

    python3 data/convert.py SOURCE_DIR [OUTPUT]

SOURCE_DIR holds openfootball-json/2026/ (results, CC0) and service-seed/ (the data service's own ids,
names, flags and stadiums, ISC). The service seed supplies every id and record; openfootball supplies what
happened: kick-off times, goals, half-time, extra time and shoot-outs. The two are paired by facts (date,
venue and teams for group games, FIFA match number plus date and venue for knockout games), and the
script stops with a message when anything fails to pair or to add up. Standard library only.
"""

import json
import re
import sys
from datetime import datetime, timedelta, timezone
from pathlib import Path
from zoneinfo import ZoneInfo

# The order in which the live service was seen to send its groups.
SERVICE_GROUP_ORDER = ["H", "I", "D", "E", "F", "G", "A", "B", "L", "K", "C", "J"]

SLOT_PATTERNS = [
    (re.compile(r"^Winner Group ([A-L])$"), lambda m: ("1" + m[1], "group " + m[1])),
    (re.compile(r"^Runner-up Group ([A-L])$"), lambda m: ("2" + m[1], "group " + m[1])),
    (re.compile(r"^3rd Group ([A-L](?:/[A-L])+)$"), lambda m: ("3" + m[1], "group stage")),
    (re.compile(r"^Winner Match (\d+)$"), lambda m: ("W" + m[1], "match " + m[1])),
    (re.compile(r"^Loser Match (\d+)$"), lambda m: ("L" + m[1], "match " + m[1])),
]


class DataError(Exception):
    pass


def check(condition, message):
    if not condition:
        raise DataError(message)


def load(path):
    with open(path, encoding="utf-8") as file:
        return json.load(file)


def city_key(city):
    """'Dallas (Arlington, Texas)' and 'Dallas (Arlington)' both name Dallas."""
    return city.split("(")[0].strip()


def kickoff_of(match):
    """openfootball writes venue-local time with its offset: '2026-06-11', '13:00 UTC-6'."""
    found = re.fullmatch(r"(\d{2}):(\d{2}) UTC([+-]\d{1,2})", match["time"])
    check(found, f"unreadable time {match['time']!r}")
    offset = timezone(timedelta(hours=int(found[3])))
    local = datetime.fromisoformat(match["date"]).replace(hour=int(found[1]), minute=int(found[2]), tzinfo=offset)
    return local


def minute_of(text):
    found = re.fullmatch(r"(\d+)(?:\+(\d+))?", text)
    check(found, f"unreadable goal minute {text!r}")
    return int(found[1]), int(found[2] or 0)


def side_result(match):
    """(home goals, away goals) at the end of play, extra time included."""
    score = match["score"]
    return tuple(score.get("et") or score["ft"])


def convert_goals(match, swapped):
    goals = []
    for source_side, key in (("home", "goals1"), ("away", "goals2")):
        side = source_side if not swapped else ("away" if source_side == "home" else "home")
        for goal in match.get(key, []):
            minute, added = minute_of(goal["minute"])
            if minute > 90 and "et" not in match["score"]:
                # A "92'" in a game without extra time was scored in stoppage time: 90+2.
                print(f"{match['team1']}-{match['team2']}: goal at {goal['minute']}' read as 90+{minute - 90}'",
                      file=sys.stderr)
                minute, added = 90, added + minute - 90
            entry = {"side": side, "minute": minute, "added": added, "scorer": goal["name"]}
            if goal.get("penalty"):
                entry["penalty"] = True
            if goal.get("owngoal"):
                entry["own_goal"] = True
            goals.append(entry)
    goals.sort(key=lambda goal: (goal["minute"], goal["added"]))
    return goals


def oriented(pair, swapped):
    return [pair[1], pair[0]] if swapped else list(pair)


def check_goals_add_up(game, match):
    goals = game["goals"]
    for period, upto in (("ht", lambda g: g["minute"] <= 45), ("ft", lambda g: g["minute"] <= 90),
                         ("et", lambda g: True)):
        if period not in game["score"]:
            continue
        counted = [sum(1 for g in goals if g["side"] == side and upto(g)) for side in ("home", "away")]
        message = f"game {game['id']} {match['team1']}-{match['team2']}: {period} goals {counted}, score {game['score'][period]}"
        # The replay counts goals by their minute, so only the full-time and extra-time scores must agree.
        if period == "ht":
            if counted != game["score"][period]:
                print(message + "; the goal minutes are kept", file=sys.stderr)
        else:
            check(counted == game["score"][period], message)


def pair_group_games(seed_games, results, team_by_name, stadium_by_city):
    """Group games are paired by venue-local date, venue and the two teams; the seed's home side wins."""
    by_facts = {}
    for game in seed_games:
        if game["type"] != "group":
            continue
        day = datetime.strptime(game["local_date"], "%m/%d/%Y %H:%M").date()
        key = (day, game["stadium_id"], frozenset((game["home_team_id"], game["away_team_id"])))
        check(key not in by_facts, f"two seed games share {key}")
        by_facts[key] = game
    pairs = []
    for match in results:
        if "group" not in match:
            continue
        home, away = team_by_name[match["team1"]]["id"], team_by_name[match["team2"]]["id"]
        stadium = stadium_by_city[city_key(match["ground"])]
        key = (kickoff_of(match).date(), stadium["id"], frozenset((home, away)))
        game = by_facts.pop(key, None)
        check(game is not None, f"no seed game for {match['team1']}-{match['team2']} on {match['date']}")
        pairs.append((game, match, game["home_team_id"] != home))
    check(not by_facts, f"seed group games left unpaired: {sorted(g['id'] for g in by_facts.values())}")
    return pairs


def slot_of(label):
    for pattern, make in SLOT_PATTERNS:
        found = pattern.fullmatch(label)
        if found:
            return make(found)
    raise DataError(f"unknown knockout label {label!r}")


def pair_knockout_games(seed_games, results, schedule, stadium_by_city):
    """Knockout games carry FIFA's match number in both sources; date, venue and bracket slots must agree."""
    seed_by_id = {game["id"]: game for game in seed_games}
    scheduled = [match for match in schedule if "group" not in match]
    played = [match for match in results if "group" not in match]
    check(len(scheduled) == len(played) == 32, "expected 32 knockout games in both openfootball files")
    pairs = []
    # The last two games have no number in the pre-tournament file; the two files list games in one order.
    for number, (slots, match) in enumerate(zip(scheduled, played), start=73):
        check(match.get("num", number) == number and slots.get("num", number) == number,
              f"knockout game {number} out of order")
        check((slots["date"], slots["ground"]) == (match["date"], match["ground"]),
              f"game {number}: the schedule and the results disagree on date or venue")
        game = seed_by_id[str(number)]
        stadium = stadium_by_city[city_key(match["ground"])]
        check(game["stadium_id"] == stadium["id"], f"game {number}: venue differs from the seed")
        seed_day = datetime.strptime(game["local_date"], "%m/%d/%Y %H:%M").date()
        check(seed_day == kickoff_of(match).date(), f"game {number}: date differs from the seed")
        home_slot, away_slot = slot_of(game["home_team_label"])[0], slot_of(game["away_team_label"])[0]
        if (home_slot, away_slot) == (slots["team1"], slots["team2"]):
            swapped = False
        else:
            check((home_slot, away_slot) == (slots["team2"], slots["team1"]),
                  f"game {number}: slots {home_slot} v {away_slot} differ from {slots['team1']} v {slots['team2']}")
            swapped = True
        pairs.append((game, match, swapped))
    return pairs


def persian_with_time(persian, local):
    """The seed's Persian date repeats the venue-local time of day; keep it in step when the time moved."""
    return persian.split(" ")[0] + " " + local.strftime("%H:%M")


def convert_game(game, match, swapped, sides, stadium):
    local = kickoff_of(match)
    zone = ZoneInfo(stadium["timezone"])
    check(local.utcoffset() == local.astimezone(zone).utcoffset(),
          f"game {game['id']}: offset {match['time']} is not the venue's zone {stadium['timezone']}")
    local_date = local.strftime("%m/%d/%Y %H:%M")
    if local_date != game["local_date"]:
        print(f"game {game['id']}: kick-off moved from {game['local_date']} to {local_date} (openfootball)",
              file=sys.stderr)
    score = {period: oriented(pair, swapped) for period, pair in match["score"].items()}
    if "p" in score:
        score["penalties"] = score.pop("p")
    record = {
        "_id": game["_id"]["$oid"],
        "id": game["id"],
        "type": game["type"],
        "group": game["group"],
        "matchday": game["matchday"],
        "stadium_id": game["stadium_id"],
        "local_date": local_date,
        "persian_date": persian_with_time(game["persian_date"], local),
        "kickoff": local.astimezone(timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ"),
        "home": sides[0],
        "away": sides[1],
        "score": score,
        "goals": convert_goals(match, swapped),
    }
    check_goals_add_up(record, match)
    return record


def knockout_side(label, team_id):
    return {"team_id": team_id, "label": label, "known_after": slot_of(label)[1]}


def winner_and_loser(record):
    home, away = record["home"]["team_id"], record["away"]["team_id"]
    score = record["score"].get("penalties") or record["score"].get("et") or record["score"]["ft"]
    check(score[0] != score[1], f"game {record['id']} has no winner")
    return (home, away) if score[0] > score[1] else (away, home)


def standings(group_games):
    """Rows (team id, points, goal difference, goals for) after the group's games."""
    table = {}
    for record in group_games:
        (home_goals, away_goals) = record["score"]["ft"]
        for team, scored, conceded in ((record["home"]["team_id"], home_goals, away_goals),
                                       (record["away"]["team_id"], away_goals, home_goals)):
            row = table.setdefault(team, [0, 0, 0])
            row[0] += 3 if scored > conceded else 1 if scored == conceded else 0
            row[1] += scored - conceded
            row[2] += scored
    return table


def final_order(letter, group_games, knockout, team_ids):
    """The group's real final order: places 1-3 as the bracket shows them, the rest by the results."""
    placed = {}
    for record in knockout:
        for side in ("home", "away"):
            label = record[side]["label"]
            if label in (f"Winner Group {letter}", f"Runner-up Group {letter}"):
                placed[1 if label.startswith("Winner") else 2] = record[side]["team_id"]
            elif label.startswith("3rd Group") and letter in label.split(" ")[2].split("/"):
                team = record[side]["team_id"]
                if team in team_ids:
                    placed[3] = team
    table = standings(group_games)
    rest = sorted((team for team in team_ids if team not in placed.values()), key=lambda t: [-v for v in table[t]])
    order = [placed[place] for place in sorted(placed)] + rest
    ranked = sorted(team_ids, key=lambda t: [-v for v in table[t]])
    for earlier, later in zip(order, order[1:]):
        check(table[earlier] >= table[later], f"group {letter}: {earlier} above {later} against the results")
    if order != ranked:
        print(f"group {letter}: ties settled by the real order {order}", file=sys.stderr)
    return order


def build(source):
    results = load(source / "openfootball-json/2026/worldcup.json")["matches"]
    schedule = load(source / "openfootball-json/2026/worldcup.schedule-2026-05-03.json")["matches"]
    of_teams = load(source / "openfootball-json/2026/worldcup.teams.json")
    of_teams = of_teams["teams"] if isinstance(of_teams, dict) else of_teams
    seed_games = load(source / "service-seed/football.matches.json")
    seed_teams = load(source / "service-seed/football.teams.json")
    seed_stadiums = load(source / "service-seed/football.stadiums.json")
    seed_groups = load(source / "service-seed/football.matchtables.json")
    check(len(results) == 104 and len(seed_games) == 104, "expected 104 games in both sources")

    # Team names differ between the sources ("USA" / "United States"); FIFA codes do not.
    seed_team_by_code = {team["fifa_code"]: team for team in seed_teams}
    team_by_name = {team["name"]: seed_team_by_code[team["fifa_code"]] for team in of_teams}
    stadium_by_city = {city_key(stadium["city_en"]): stadium for stadium in seed_stadiums}
    stadium_by_id = {stadium["id"]: stadium for stadium in seed_stadiums}

    games = []
    for game, match, swapped in pair_group_games(seed_games, results, team_by_name, stadium_by_city):
        sides = [{"team_id": game["home_team_id"]}, {"team_id": game["away_team_id"]}]
        games.append(convert_game(game, match, swapped, sides, stadium_by_id[game["stadium_id"]]))

    knockout = []
    for game, match, swapped in pair_knockout_games(seed_games, results, schedule, stadium_by_city):
        teams = oriented((team_by_name[match["team1"]]["id"], team_by_name[match["team2"]]["id"]), swapped)
        sides = [knockout_side(game["home_team_label"], teams[0]),
                 knockout_side(game["away_team_label"], teams[1])]
        knockout.append(convert_game(game, match, swapped, sides, stadium_by_id[game["stadium_id"]]))

    # Each "Winner/Loser Match N" side must be the team that really came out of game N.
    outcome = {record["id"]: winner_and_loser(record) for record in knockout}
    for record in knockout:
        for side in ("home", "away"):
            found = re.fullmatch(r"(Winner|Loser) Match (\d+)", record[side]["label"])
            if found:
                expected = outcome[found[2]][0 if found[1] == "Winner" else 1]
                check(record[side]["team_id"] == expected, f"game {record['id']}: {side} is not {found[0]}")

    games = sorted(games + knockout, key=lambda record: int(record["id"]))
    check([record["id"] for record in games] == [str(n) for n in range(1, 105)], "game ids are not 1..104")

    seed_group_by_letter = {group["group"]: group for group in seed_groups}
    groups = []
    for letter in SERVICE_GROUP_ORDER:
        seed_group = seed_group_by_letter[letter]
        team_ids = [row["team_id"] for row in seed_group["teams"]]
        group_games = [record for record in games if record["type"] == "group" and record["group"] == letter]
        check(len(group_games) == 6, f"group {letter} has {len(group_games)} games")
        groups.append({
            "_id": seed_group["_id"]["$oid"],
            "name": letter,
            "draw_order": team_ids,
            "final_order": final_order(letter, group_games, knockout, team_ids),
        })

    def plain_id(record):
        return {**record, "_id": record["_id"]["$oid"]}

    return {
        "tournament": "FIFA World Cup 2026",
        "sources": "openfootball/worldcup.json (CC0 1.0) and the worldcup26.ir service seed (ISC); see NOTICE",
        "teams": [plain_id(team) for team in sorted(seed_teams, key=lambda t: int(t["id"]))],
        "stadiums": [plain_id(stadium) for stadium in sorted(seed_stadiums, key=lambda s: int(s["id"]))],
        "groups": groups,
        "games": games,
    }


def main(argv):
    if len(argv) not in (2, 3):
        print(__doc__.strip().splitlines()[2].strip(), file=sys.stderr)
        return 2
    try:
        dataset = build(Path(argv[1]))
    except (DataError, KeyError, OSError, ValueError) as error:
        print(f"convert.py: {error}", file=sys.stderr)
        return 1
    text = json.dumps(dataset, ensure_ascii=False, indent=1) + "\n"
    if len(argv) == 3:
        Path(argv[2]).write_text(text, encoding="utf-8")
    else:
        sys.stdout.write(text)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
