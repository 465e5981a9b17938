VERSION 5.00
Begin VB.Form frmMain 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Tessaly Sample"
   ClientHeight    =   3015
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   5400
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   3015
   ScaleWidth      =   5400
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.Frame Frame1 
      Caption         =   "Greeting"
      Height          =   1215
      Left            =   120
      TabIndex        =   4
      Top             =   1560
      Width           =   3615
      Begin VB.OptionButton Option1 
         Caption         =   "Formal"
         Height          =   255
         Left            =   240
         TabIndex        =   5
         Top             =   360
         Value           =   -1  'True
         Width           =   3135
      End
   End
   Begin VB.CheckBox Check1 
      Caption         =   "Remember the name"
      Height          =   255
      Left            =   120
      TabIndex        =   3
      Top             =   1080
      Width           =   3615
   End
   Begin VB.CommandButton Command1 
      Caption         =   "OK"
      Default         =   -1  'True
      Enabled         =   0   'False
      Height          =   375
      Left            =   3960
      TabIndex        =   2
      Top             =   120
      Width           =   1215
   End
   Begin VB.TextBox Text1 
      Height          =   285
      Left            =   1200
      TabIndex        =   1
      Top             =   120
      Width           =   2535
   End
   Begin VB.Label Label1 
      Caption         =   "&Name:"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   150
      Width           =   975
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Command1_Click()
    MsgBox Greeting(Text1.Text), vbInformation, APP_TITLE
    Unload Me
End Sub

Private Sub Text1_Change()
    Command1.Enabled = HasText(Text1.Text)
End Sub

Private Function HasText(ByVal Value As String) As Boolean
    HasText = Len(Trim$(Value)) > 0
End Function

Private Function Greeting(ByVal Name As String) As String
    If Option1.Value Then
        Greeting = "Good day, " & Name & "."
    Else
        Greeting = "Hello, " & Name & "!"
    End If
End Function
