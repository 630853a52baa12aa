"""The model that learns, lesson by lesson, whether a window let go near an edge was meant to snap."""

import json
import math
from dataclasses import dataclass, field

from drag_features import LESSONS, REACH, DragFeatures

TODAYS_EDGE = 6.0  # points
PRIOR = [3.0, -12.0, 0.0, 0.0, 0.0, 0.0, 0.0]
RATE = [0.25, 0.4, 1.6, 1.4, 1.2, 2.2, 2.2]
PULL = [0.05, 0.05, 0.002, 0.002, 0.002, 0.002, 0.002]


def evidence_of(wins: float, losses: float) -> float:
    """By how many standard errors the wins outweigh the losses; 0 while there is less than one of them."""
    if wins + losses < 1:
        return 0.0
    return (wins - losses) / math.sqrt(wins + losses)


def raw_probability(features: DragFeatures, weights: list[float]) -> float:
    """The logistic output of a set of weights."""
    s = 0.0
    for weight, x in zip(weights, features.vector()):
        s += weight * x
    try:
        return 1 / (1 + math.exp(-s))
    except OverflowError:
        return 0.0


@dataclass
class DragIntentModel:
    """Weights, their running average, and the score of model against rule."""

    weights: list[float] = field(default_factory=lambda: list(PRIOR))
    updates: int = 0
    averaged: list[float] = field(default_factory=lambda: list(PRIOR))
    model_only_right: float = 0.0
    rule_only_right: float = 0.0
    trusted: bool = False

    def probability(self, features: DragFeatures) -> float:
        """How likely a snap was meant, by the averaged weights."""
        return raw_probability(features, self.averaged)

    def learned_would_snap(self, features: DragFeatures) -> bool:
        """What the model would do, trusted or not."""
        if features.distance > REACH:
            return False
        return self.probability(features) > 0.5

    def should_snap(self, features: DragFeatures) -> bool:
        """The rule's decision, or the model's once it is trusted."""
        if not self.trusted:
            return features.distance <= TODAYS_EDGE
        return self.learned_would_snap(features)

    def evidence(self) -> float:
        """Standard errors by which the model is ahead of the rule."""
        return evidence_of(self.model_only_right, self.rule_only_right)

    def learn_follow_up(self, features: DragFeatures, follow: str) -> None:
        """The lesson of what the user did after the drag."""
        snap, weight = LESSONS[follow]
        self.learn(features, snap, weight)

    def learn(self, features: DragFeatures, snap: bool, weight: float) -> None:
        """One lesson: keeps the score, settles trust, then moves the weights."""
        rule_right = (features.distance <= TODAYS_EDGE) == snap
        model_right = self.learned_would_snap(features) == snap
        self.model_only_right *= 0.999
        self.rule_only_right *= 0.999
        if model_right and not rule_right:
            self.model_only_right += weight
        if rule_right and not model_right:
            self.rule_only_right += weight
        self.settle_trust()
        self.move_weights(features, snap, weight)
        self.updates += 1

    def settle_trust(self) -> None:
        """Gives or takes trust by the score as it stands."""
        m, r = self.model_only_right, self.rule_only_right
        n = m + r
        if self.trusted:
            if n >= 1 and (m - r) / math.sqrt(n) < -0.5:
                self.trusted = False
        elif self.updates >= 40 and n >= 20 and (m - r) / math.sqrt(n) >= 2.5:
            self.trusted = True

    def move_weights(self, features: DragFeatures, snap: bool, w: float) -> None:
        """A gradient step on the live weights, and a small step of the averaged ones after them."""
        x = features.vector()
        p = raw_probability(features, self.weights)
        y = 1.0 if snap else 0.0
        eta = max(0.35 / (1 + self.updates / 80), 0.012)
        for i in range(len(self.weights)):
            old = self.weights[i]
            moved = old + x[i] * (y - p) * eta * RATE[i] * w - eta * PULL[i] * (old - PRIOR[i])
            self.weights[i] = min(max(moved, -15.0), 15.0)
            self.averaged[i] = self.averaged[i] + (self.weights[i] - self.averaged[i]) * 0.02


def encode(model: DragIntentModel) -> str:
    """The model as a JSON object."""
    return json.dumps({
        "weights": model.weights,
        "updates": model.updates,
        "averaged": model.averaged,
        "modelOnlyRight": model.model_only_right,
        "ruleOnlyRight": model.rule_only_right,
        "trusted": model.trusted,
    })


def decode(text: str) -> DragIntentModel:
    """The model of a JSON object; a fresh one when anything about it is wrong."""
    try:
        fields = json.loads(text, parse_constant=refuse)
        return DragIntentModel(
            weights=weights_from(fields["weights"]),
            updates=whole_from(fields["updates"]),
            averaged=weights_from(fields["averaged"]),
            model_only_right=number_from(fields["modelOnlyRight"]),
            rule_only_right=number_from(fields["ruleOnlyRight"]),
            trusted=truth_from(fields["trusted"]),
        )
    except (ValueError, KeyError, TypeError, OverflowError):
        return DragIntentModel()


def refuse(what: object) -> None:
    """Ends decoding."""
    raise ValueError(f"not acceptable: {what}")


def weights_from(value: object) -> list[float]:
    """Exactly seven finite numbers."""
    if not isinstance(value, list) or len(value) != len(PRIOR):
        refuse(value)
    return [number_from(entry) for entry in value]


def number_from(value: object) -> float:
    """A finite number; a whole one will do."""
    if isinstance(value, bool) or not isinstance(value, (int, float)) or not math.isfinite(float(value)):
        refuse(value)
    return float(value)


def whole_from(value: object) -> int:
    """A signed 64-bit number without a fraction."""
    number = number_from(value)
    if number != math.floor(number) or not -(2**63) <= int(value) < 2**63:
        refuse(value)
    return int(value)


def truth_from(value: object) -> bool:
    """true or false, and nothing that resembles them."""
    if not isinstance(value, bool):
        refuse(value)
    return value
