Attribute VB_Name = "modUtil"
Option Explicit

Public Const APP_TITLE As String = "Tessaly Sample"

' Limits a value to the range Low..High.
Public Function Clamp(ByVal Value As Long, ByVal Low As Long, ByVal High As Long) As Long
    If Value < Low Then
        Clamp = Low
    ElseIf Value > High Then
        Clamp = High
    Else
        Clamp = Value
    End If
End Function
