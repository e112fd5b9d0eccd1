"""Reads an iCalendar file on stdin with Debian's python3-icalendar and prints its events as JSON.

Each event is {"uid", "summary", "location", "description", "start", "end"}; times in ISO 8601, UTC.
"""
import json
import sys

from icalendar import Calendar

calendar = Calendar.from_ical(sys.stdin.buffer.read())
events = [
    {
        "uid": str(event.get("uid")),
        "summary": str(event.get("summary")),
        "location": str(event.get("location")),
        "description": str(event.get("description")),
        "start": event.decoded("dtstart").isoformat(),
        "end": event.decoded("dtend").isoformat(),
    }
    for event in calendar.walk("VEVENT")
]
json.dump(events, sys.stdout, ensure_ascii=False)
