/// Every public header of Kolm, the platform's included. A host needs nothing else.
#pragma once

#include "KolmApi.h"
#include "KolmVersion.h"

#include <afx.h>
#include <afxcoll.h>
#include <afxinet.h>
#include <afxtempl.h>
#include <afxwin.h>
#include <windows.h>

#include "foundation/CArrayArrayPointD.h"
#include "foundation/CArrayPointD.h"
#include "foundation/CArrayRectD.h"
#include "foundation/CArrayRectF.h"
#include "foundation/CJpeg.h"
#include "foundation/CKObject.h"
#include "foundation/CKPoint.h"
#include "foundation/CKPointD.h"
#include "foundation/CKPointF.h"
#include "foundation/CKRect.h"
#include "foundation/CKRectD.h"
#include "foundation/CKRectF.h"
#include "foundation/CKTwoPointD.h"
#include "foundation/CPointD.h"
#include "foundation/CPointF.h"
#include "foundation/CRectD.h"
#include "foundation/CRectF.h"
#include "foundation/KRecords.h"
#include "foundation/Saturate.h"

#include "containers/CExPtrArray.h"
#include "containers/CKArray.h"
#include "containers/CKOrderedDoubleArray.h"
#include "containers/CKOrderedIntArray.h"
#include "containers/CKPointFArray.h"
#include "containers/CKPointFArrayArray.h"
#include "containers/CKRectDArray.h"

#include "math/CKMath.h"

#include "entities/CKEntity.h"
#include "entities/CKGeom.h"
#include "entities/CKGeomArc.h"
#include "entities/CKGeomArray.h"
#include "entities/CKGeomCircle.h"
#include "entities/CKGeomContainer.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPoint.h"
#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomRectangle.h"
#include "entities/CKGeomText.h"

#include "painter/CKPainter.h"
#include "painter/KRectangleD.h"

#include "interaction/CKEventHandler.h"
#include "interaction/CKPcbElementInfo.h"
#include "interaction/CKPcbElementInfoArray.h"
#include "interaction/CKPickingHandler.h"

#include "util/CKCommunicator.h"
#include "util/CKDebuger.h"
#include "util/CKString.h"
