"""The test bench with modules behind a HART modem."""

import json

from bench import Bench

# A transmitter that the catalogue knows with this firmware, without a fault.
HEALTHY = {
    "link": "hart",
    "vendorId": 176,
    "deviceType": 226,
    "deviceRevision": 1,
    "uniqueId": 4711,
    "name": "TESSARA HT 2261",
    "firmware": "HV2.00",
    "serialNumber": "S 4711",
    "status": [0, 0, 0, 0, 0, 0, 0, 0, 0],
}


class HartBench(Bench):
    """Runs each test with separate HART modules."""

    def hart(self, **changes):
        """The path of a module file: the healthy transmitter with these changes; None removes a key."""
        path = self.folder / "hart.json"
        module = {key: value for key, value in (HEALTHY | changes).items() if value is not None}
        path.write_text(json.dumps(module), encoding="utf-8")
        return path
