VERSION 5.00
Begin VB.Form frmNested 
   Caption         =   "Nested"
   ClientHeight    =   4200
   ClientLeft      =   60
   ClientTop       =   630
   ClientWidth     =   6000
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   ScaleWidth      =   6000
   StartUpPosition =   3  'Windows Default
   Begin VB.Frame fraOuter 
      Caption         =   "Outer"
      Height          =   3735
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   5655
      Begin VB.PictureBox picHolder 
         BorderStyle     =   0  'None
         Height          =   2895
         Left            =   120
         ScaleHeight     =   2895
         ScaleWidth      =   5295
         TabIndex        =   1
         Top             =   600
         Width           =   5295
         Begin VB.Frame fraInner 
            Caption         =   "Inner"
            Height          =   1575
            Left            =   120
            TabIndex        =   2
            Top             =   120
            Width           =   2535
            Begin VB.OptionButton optA 
               Caption         =   "A"
               Height          =   255
               Left            =   120
               TabIndex        =   3
               Top             =   360
               Value           =   -1  'True
               Width           =   1215
            End
            Begin VB.OptionButton optB 
               Caption         =   "B"
               Height          =   255
               Left            =   120
               TabIndex        =   4
               Top             =   720
               Width           =   1215
            End
         End
      End
      Begin VB.CheckBox chkOuter 
         Caption         =   "Outer check"
         Height          =   255
         Left            =   120
         TabIndex        =   5
         Top             =   240
         Value           =   1  'Checked
         Width           =   2055
      End
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileOpen 
         Caption         =   "&Open..."
         Shortcut        =   ^O
      End
      Begin VB.Menu mnuFileSep 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
End
Attribute VB_Name = "frmNested"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub mnuFileExit_Click()
    Unload Me
End Sub
