VERSION 5.00
Begin VB.Form frmArray 
   Caption         =   "Arrays"
   ClientHeight    =   2400
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   3600
   LinkTopic       =   "Form1"
   ScaleHeight     =   2400
   ScaleWidth      =   3600
   StartUpPosition =   3  'Windows Default
   Begin VB.TextBox txtField 
      Height          =   285
      Index           =   1
      Left            =   1320
      TabIndex        =   3
      Text            =   "second"
      Top             =   1440
      Width           =   2055
   End
   Begin VB.TextBox txtField 
      Height          =   285
      Index           =   0
      Left            =   1320
      TabIndex        =   2
      Text            =   "first"
      Top             =   1080
      Width           =   2055
   End
   Begin VB.OptionButton optChoice 
      Caption         =   "Two"
      Height          =   255
      Index           =   2
      Left            =   120
      TabIndex        =   1
      Top             =   480
      Width           =   1095
   End
   Begin VB.OptionButton optChoice 
      Caption         =   "One"
      Height          =   255
      Index           =   1
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Value           =   -1  'True
      Width           =   1095
   End
End
Attribute VB_Name = "frmArray"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub optChoice_Click(Index As Integer)
    txtField(0).Text = CStr(Index)
End Sub
