' Option Explicit comes first or not at all.
Dim x
Option Explicit '! 1024
